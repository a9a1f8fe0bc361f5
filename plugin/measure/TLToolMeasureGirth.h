#pragma once

#include <QPointer>

#include "TLPluginExport.h"
#include "tlmap/TLSnapTool.h"
#include "tlmap/TLTool.h"

class TMDisplayGirth;

namespace TMObjects {

class TLEvent;
class TLFeatureLayer;
class TLMapView;

// Adds up the lengths of the features picked on the current layer; read-only. A click picks
// anew, a click with Shift adds to what is picked.
class TL_ACTIONEX_EXPORT TLToolMeasureGirth : public TLTool {
public:
    TLToolMeasureGirth();
    explicit TLToolMeasureGirth(TLToolBuddy* buddy);
    ~TLToolMeasureGirth() override;

    void activate() override;
    void deactivate() override;
    bool OnMouseDown(TLMouseButton button, int x, int y) override;

    // The map's current layer changed: what was picked there no longer counts.
    void OnCurrLayerChanged(void* sender, TLEvent* event);
    void clearSelectedFeature();
    void DisplayMeasureGirth(double value, TLTool* tool, bool show);

    int measureUnits() const { return units; }

private:
    // The feature layer under the click that may be picked: the map's current one, if shown.
    TLFeatureLayer* pickableLayer(TLMapView* view) const;
    double pickAndSum(TLMapView* view, TLFeatureLayer* layer, const TLPoint& point);
    // In metres on the ellipsoid for a geographic layer, else in the layer's units.
    double selectedLength(TLFeatureLayer* layer);
    TLString bindingKey() const;

    TLString projection;
    // Guarded: the dialog is a child of the main window and may go with it.
    QPointer<TMDisplayGirth> dialog;
    int units = 0;
    TLSnapTool snapTool;
};

}  // namespace TMObjects
