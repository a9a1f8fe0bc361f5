#pragma once

#include "CommandSession.h"

namespace TMObjects {

// The polygon command picked on an editable polygon layer "parcels".
class PolygonSession : public CommandSession {
protected:
    void SetUp() override;

    // The rings of the only feature of `parcels`, closing vertices included; fails the test
    // when there is not exactly one feature.
    Rings committed() const { return onlyFeatureParts(parcels); }
    // The stored geometry of that feature.
    TLRefPtr<TLGeometry> committedGeometry() const;
    int featureCount() const { return parcels->GetDatasource()->GetFeatureCount(); }

    // The main, guide and dashed assist bands, in the order the tool made them.
    TLRubberBand* mainBand() const { return view->RubberBands().at(0); }
    TLRubberBand* guideBand() const { return view->RubberBands().at(1); }
    TLRubberBand* assistBand() const { return view->RubberBands().at(2); }

    TLFeatureLayer* parcels = nullptr;
};

}  // namespace TMObjects
