#pragma once

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

class TLMapView;

// Moves all selected features of all layers by an offset typed as two numbers, x then y, in map
// units, all in one step "WholeOffset". The selection stays, so the same features can be moved
// again at once.
class TL_ACTIONEX_EXPORT TLToolWholeOffset : public TLTool {
public:
    TLToolWholeOffset();
    explicit TLToolWholeOffset(TLToolBuddy* buddy);
    ~TLToolWholeOffset() override;

    void activate() override;
    void deactivate() override;
    bool processChildCmd(TLString text) override;

private:
    void offsetSelection(TLMapView* view);

    double mOffsetX = 0.0;
    double mOffsetY = 0.0;
    int mStep = 0;
};

}  // namespace TMObjects
