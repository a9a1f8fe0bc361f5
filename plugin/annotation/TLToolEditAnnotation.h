#pragma once

#include <vector>

#include "TLPluginExport.h"
#include "identify/TLIdentifyLayerPick.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

class TLDisplayTransform;
class TLMapView;
class TLRubberBand;

// Picks one annotation by a click or a drag and opens its attributes dialog.
class TL_ACTIONEX_EXPORT TLToolEditAnnotation : public TLTool {
public:
    TLToolEditAnnotation();
    explicit TLToolEditAnnotation(TLToolBuddy* buddy);
    ~TLToolEditAnnotation() override;

    void activate() override;
    void deactivate() override;
    bool OnMouseDown(TLMouseButton button, int x, int y) override;
    bool OnMouseUp(TLMouseButton button, int x, int y) override;
    bool OnMouseMove(TLMouseButton button, int x, int y) override;

private:
    void SelectFeatureByRect(TLMapView* view, TLDisplayTransform* transform, int x, int y);
    void clearSelectedFeature();
    void showEditAnnoAttributeDlg(TLMapView* view);

    bool mPressed = false;
    bool mMoved = false;
    double mDownX = 0.0;
    double mDownY = 0.0;
    bool mHasAnnotation = false;
    bool mHasVector = false;
    int mPickCount = 0;
    TLRubberBand* mBand = nullptr;
    std::vector<TLIdentifyLayerPick> mPicks;
};

}  // namespace TMObjects
