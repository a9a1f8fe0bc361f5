#pragma once

#include <string>
#include <utility>
#include <vector>

#include "../point_command/SessionFixture.h"
#include "tlmap/TLRubberBand.h"

namespace TMObjects {

using XY = std::pair<double, double>;
using Path = std::vector<XY>;
using Paths = std::vector<Path>;
using Texts = std::vector<std::string>;

// The line command picked on an editable line layer "roads", in the fixture's view of one map
// unit a pixel. The helpers speak map coordinates: device y is 600 - map y.
class LineSession : public SessionFixture {
protected:
    void SetUp() override;

    void move(double x, double y);
    // A move to the point, then press and release there.
    void click(double x, double y, TLMouseButton button = TLLeftButton);
    bool type(const char* text) { return dispatcher->TypeLine(text); }
    // Each point clicked in turn.
    void clickAll(const Path& path);

    // A line layer with one feature of the given vertices; returns the feature's id.
    int addLine(TLFeatureLayer* layer, const Path& vertices);
    Paths pathsOf(TLFeatureLayer* layer, int id) const;
    // The paths of the only feature of `roads`; fails the test when there is not exactly one.
    Paths committed() const;

    // The main, guide and dashed assist bands, in the order the tool made them.
    TLRubberBand* mainBand() const { return view->RubberBands().at(0); }
    TLRubberBand* guideBand() const { return view->RubberBands().at(1); }
    TLRubberBand* assistBand() const { return view->RubberBands().at(2); }
    static Path pointsOf(const TLRubberBand* band);

    TLFeatureLayer* roads = nullptr;
};

// Paths equal to within rounding of the constructions.
void expectPaths(const Paths& actual, const Paths& expected);
void expectPath(const Path& actual, const Path& expected);

}  // namespace TMObjects
