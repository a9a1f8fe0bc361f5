#pragma once

#include "CommandSession.h"

namespace TMObjects {

// An editable polygon layer "parcels" with a shape command picked on it.
class ShapeSession : public CommandSession {
protected:
    void SetUp() override;
    // Picks the command and forgets what its activation said.
    void start(const char* className);

    // The outer ring of a feature, closing vertex included; fails the test unless the feature is
    // a polygon of one ring.
    Ring ringOf(TLFeatureLayer* layer, int id) const;
    // The ring of the only feature of `parcels`; fails the test when there is not exactly one.
    Ring committed() const;
    int featureCount() const { return parcels->GetDatasource()->GetFeatureCount(); }
    int undoSteps() const;

    // The command's band and what it shows, all parts in order.
    TLRubberBand* band() const { return view->RubberBands().at(0); }
    Ring bandPoints() const { return pointsOf(band()); }

    TLFeatureLayer* parcels = nullptr;
};

}  // namespace TMObjects
