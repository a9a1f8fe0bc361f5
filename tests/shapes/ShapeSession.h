#pragma once

#include <string>
#include <utility>
#include <vector>

#include "../point_command/SessionFixture.h"
#include "tlmap/TLRubberBand.h"

namespace TMObjects {

using XY = std::pair<double, double>;
using Ring = std::vector<XY>;
using Texts = std::vector<std::string>;

// An editable polygon layer "parcels" in the fixture's view of one map unit a pixel, with a
// shape command picked on it. The helpers speak map coordinates: device y is 600 - map y.
class ShapeSession : public SessionFixture {
protected:
    void SetUp() override;
    // Picks the command and forgets what its activation said.
    void start(const char* className);

    void move(double x, double y);
    // A press and release without a move before it: the press keeps the last move's snap.
    void press(double x, double y, TLMouseButton button = TLLeftButton);
    // A move to the point, then a press and release there.
    void click(double x, double y);
    bool type(const char* text) { return dispatcher->TypeLine(text); }

    // The outer ring of a feature, closing vertex included.
    Ring ringOf(TLFeatureLayer* layer, int id) const;
    // The ring of the only feature of `parcels`; fails the test when there is not exactly one.
    Ring committed() const;
    int featureCount() const { return parcels->GetDatasource()->GetFeatureCount(); }
    int undoSteps() const;

    // The command's band and what it shows, all parts in order.
    TLRubberBand* band() const { return view->RubberBands().at(0); }
    Ring bandPoints() const;

    TLFeatureLayer* parcels = nullptr;
};

// Rings equal vertex by vertex, to within the rounding of the constructions.
void expectRing(const Ring& actual, const Ring& expected);

}  // namespace TMObjects
