#pragma once

#include "CommandSession.h"

namespace TMObjects {

// An editable polygon layer "symbols" with a plotting command picked on it.
class PlotSession : public CommandSession {
protected:
    void SetUp() override;
    // Picks the command and forgets what its activation said.
    void start(const char* className);

    // The outer ring of the only feature of `symbols`, closing vertex included; fails the test
    // unless there is exactly one feature and it is a polygon of one ring.
    Ring committed() const;
    int featureCount() const { return symbols->GetDatasource()->GetFeatureCount(); }
    int undoSteps() const;
    std::string undoLabel() const;

    TLRubberBand* band() const { return view->RubberBands().at(0); }
    Path bandPoints() const { return pointsOf(band()); }

    TLFeatureLayer* symbols = nullptr;
};

}  // namespace TMObjects
