#pragma once

#include <vector>

#include "TLPluginExport.h"
#include "tlbase/TLPoint.h"
#include "tlmap/TLRubberBand.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

class TLMapView;

// Shared base of the shield tools that mask the view to one polygon; not registered by itself.
// The mask belongs to the view: nothing is written to any layer, and a mask outlives the tool
// that set it.
class TL_ACTIONEX_EXPORT TLToolShieldAreas : public TLTool {
public:
    TLToolShieldAreas();
    explicit TLToolShieldAreas(TLToolBuddy* buddy);
    ~TLToolShieldAreas() override;

    void activate() override;
    void deactivate() override;

protected:
    // The view of the buddy; null without a buddy.
    TLMapView* mapView() const;
    // Masks the view to the ring of map points, in order; the ring is closed here. Forgets the
    // points and redraws the view.
    void applyMask(const std::vector<TLPoint>& ring);
    // Shows the points as a band of the given type for this one event: the band goes away with
    // the call, so the next event's picture replaces it.
    void sketch(TLRubberBand::RubberBandType type, const std::vector<TLPoint>& vertices);

    // The device position of the latest press.
    TLPoint lastDevicePoint;
    // The map points taken so far.
    std::vector<TLPoint> points;
};

}  // namespace TMObjects
