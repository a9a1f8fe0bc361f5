#pragma once

#include <vector>

#include "TLPluginExport.h"
#include "identify/TLIdentifyLayerPick.h"
#include "tlmap/TLTool.h"

class TMDialogEditVectorAttributes;

namespace TMObjects {

class TLDisplayTransform;
class TLMapView;

// Edits the attributes of the features caught in a dragged box, in the attribute editor beside
// the map; a box that catches annotation opens the annotation's own dialog instead.
class TL_ACTIONEX_EXPORT TLToolEditAttributes : public TLTool {
public:
    TLToolEditAttributes();
    explicit TLToolEditAttributes(TLToolBuddy* buddy);
    ~TLToolEditAttributes() override;

    void activate() override;
    void deactivate() override;
    bool OnMouseDown(TLMouseButton button, int x, int y) override;
    bool OnMouseMove(TLMouseButton button, int x, int y) override;
    bool OnMouseUp(TLMouseButton button, int x, int y) override;

    // The view of the buddy; null while the tool is not in use.
    TLMapView* mapView() const;

private:
    void SelectFeatureByRect(TLMapView* view, TLDisplayTransform* transform, int x, int y);
    void showEditVecAttributeDlg(TLMapView* view);
    void showEditAnnoAttributeDlg(TLMapView* view);
    void clearAllSelections();
    void resetPress();

    bool mDragging = false;
    bool mMoved = false;
    double mDownX = 0.0;
    double mDownY = 0.0;
    bool mHasAnno = false;
    bool mHasVector = false;
    int mAnnoCount = 0;
    TMDialogEditVectorAttributes* mDialog = nullptr;
    std::vector<TLIdentifyLayerPick> mSelection;
};

}  // namespace TMObjects
