#pragma once

#include <vector>

#include "TLPluginExport.h"
#include "tlbase/TLPoint.h"
#include "tlbase/TLRect.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

class TLSnapTool;
class TLEditor;
class TLFeatureLayer;

// Adds point features to the edit layer: one feature per left press or per typed "x,y".
class TL_ACTIONEX_EXPORT TLCmdDigitizePoint : public TLTool {
public:
    TLCmdDigitizePoint();
    explicit TLCmdDigitizePoint(TLToolBuddy* buddy);
    ~TLCmdDigitizePoint() override;

    void activate() override;
    void deactivate() override;
    bool OnMouseDown(TLMouseButton button, int x, int y) override;
    bool OnMouseUp(TLMouseButton button, int x, int y) override;
    bool OnMouseMove(TLMouseButton button, int x, int y) override;
    bool OnDblClick(TLMouseButton button, int x, int y) override;
    bool processChildCmd(TLString text) override;

    void Reset();
    bool EndEntity(TLPoint& point, TLRect& rect);

private:
    unsigned char ready = 0;
    int state = 0;
    std::vector<TLPoint> points;
    TLSnapTool* snapTool = nullptr;
    TLEditor* editor = nullptr;
    TLFeatureLayer* layer = nullptr;
};

}  // namespace TMObjects
