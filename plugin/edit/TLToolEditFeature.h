#pragma once

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

// An exported editing tool that the plugin does not register: it takes no events and draws
// nothing, for hosts that name it.
class TL_ACTIONEX_EXPORT TLToolEditFeature : public TLTool {
public:
    TLToolEditFeature();
    explicit TLToolEditFeature(TLToolBuddy* buddy);
    ~TLToolEditFeature() override;

    void activate() override;
    void deactivate() override;
    bool OnMouseDown(TLMouseButton button, int x, int y) override;
    bool OnMouseUp(TLMouseButton button, int x, int y) override;
    bool OnMouseMove(TLMouseButton button, int x, int y) override;
    bool OnDblClick(TLMouseButton button, int x, int y) override;
    bool OnKeyDown(int key) override;
    void clearCanvas() override;
};

}  // namespace TMObjects
