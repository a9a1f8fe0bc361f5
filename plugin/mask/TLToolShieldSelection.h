#pragma once

#include <vector>

#include "TLPluginExport.h"
#include "mask/TLToolShieldAreas.h"

namespace TMObjects {

class TLFeatureLayer;

// Masks the view to the selected polygon feature. With exactly one polygon selected it masks at
// once when picked; otherwise it waits for clicks: a first click selects a polygon, a Shift click
// cycles through overlapping ones, and a click on the selected polygon masks the view.
class TL_ACTIONEX_EXPORT TLToolShieldSelection : public TLToolShieldAreas {
public:
    TLToolShieldSelection();
    explicit TLToolShieldSelection(TLToolBuddy* buddy);
    ~TLToolShieldSelection() override;

    void activate() override;
    bool OnMouseDown(TLMouseButton button, int x, int y) override;
    // Does its whole work in activate, so the host runs it as a one-shot command.
    bool IsCmd() override;

private:
    // Masks with the only selected polygon of the map, or says why it cannot.
    void maskWithSelection();
    // The click at device (x, y) on one layer: masks with a selected polygon under it, or
    // selects one that is not. True when it masked or the layer now has a selection.
    bool pickOn(TLFeatureLayer* layer, int x, int y);
    bool shiftHeld() const;
    // Ids of the layer's features within the pick tolerance of device (x, y).
    std::vector<int> hitsAt(TLFeatureLayer* layer, int x, int y);
    // Masks with the first of the features whose geometry is a polygon; false when none is.
    bool maskWithFirstPolygon(TLFeatureLayer* layer, const std::vector<int>& ids);
    // Selects one of the hits, the next one on each Shift click.
    bool selectOneOf(TLFeatureLayer* layer, const std::vector<int>& hits);
    // Masks with the layer's geometry brought into the map's coordinates; false for anything
    // but a polygon.
    bool maskWithGeometry(TLFeatureLayer* layer, int id);

    // Which of the overlapping hits a Shift click selects; kept across picks and tools.
    static int pickCycleIndex;
};

}  // namespace TMObjects
