#pragma once

#include <string>

#include "CommandSession.h"

namespace TMObjects {

// An editable line layer "roads" on a map in metres (UTM zone 31 north), with a double line
// command picked on it.
class DoubleLineSession : public CommandSession {
protected:
    void SetUp() override;
    // Picks the command and forgets what its activation said.
    void start(const char* className);

    // The clicked line and the computed one, as the layer holds them: the first feature and the
    // second. Fails the test unless there are exactly two, of one path each.
    Paths committedPair() const;
    int featureCount() const { return roads->GetDatasource()->GetFeatureCount(); }
    int undoSteps() const;
    std::string lastLabel() const;

    // The bands in the order the command makes them: the clicked line, the computed line, the
    // clicked preview and the computed preview.
    TLRubberBand* band(int i) const { return view->RubberBands().at(std::size_t(i)); }
    Path shown(int i) const { return pointsOf(band(i)); }
    bool nothingShown() const;

    TLFeatureLayer* roads = nullptr;
};

}  // namespace TMObjects
