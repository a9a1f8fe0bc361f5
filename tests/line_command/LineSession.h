#pragma once

#include "CommandSession.h"

namespace TMObjects {

// The line command picked on an editable line layer "roads".
class LineSession : public CommandSession {
protected:
    void SetUp() override;

    Paths pathsOf(TLFeatureLayer* layer, int id) const { return partsOf(layer, id); }
    // The paths of the only feature of `roads`; fails the test when there is not exactly one.
    Paths committed() const { return onlyFeatureParts(roads); }

    // The main, guide and dashed assist bands, in the order the tool made them.
    TLRubberBand* mainBand() const { return view->RubberBands().at(0); }
    TLRubberBand* guideBand() const { return view->RubberBands().at(1); }
    TLRubberBand* assistBand() const { return view->RubberBands().at(2); }

    TLFeatureLayer* roads = nullptr;
};

}  // namespace TMObjects
