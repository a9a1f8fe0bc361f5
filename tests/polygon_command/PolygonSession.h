#pragma once

#include <string>
#include <utility>
#include <vector>

#include "../point_command/SessionFixture.h"
#include "tlmap/TLRubberBand.h"

namespace TMObjects {

using XY = std::pair<double, double>;
using Ring = std::vector<XY>;
using Rings = std::vector<Ring>;
using Texts = std::vector<std::string>;

// The polygon command picked on an editable polygon layer "parcels", in the fixture's view of one
// map unit a pixel. The helpers speak map coordinates: device y is 600 - map y.
class PolygonSession : public SessionFixture {
protected:
    void SetUp() override;

    void move(double x, double y);
    // A move to the point, then press and release there.
    void click(double x, double y, TLMouseButton button = TLLeftButton);
    // Each point clicked in turn.
    void clickAll(const Ring& points);
    // The press of a double click at the point has added its vertex; this is the double click
    // that follows it.
    bool doubleClick(double x, double y);
    bool type(const char* text) { return dispatcher->TypeLine(text); }

    // A line layer with one feature of the given vertices, for the picks of CZ, PL and PY.
    void addLine(TLFeatureLayer* layer, const Ring& vertices);
    // The rings of the only feature of `parcels`, closing vertices included; fails the test
    // when there is not exactly one feature.
    Rings committed() const;
    // The stored geometry of that feature.
    TLRefPtr<TLGeometry> committedGeometry() const;
    int featureCount() const { return parcels->GetDatasource()->GetFeatureCount(); }

    // The main, guide and dashed assist bands, in the order the tool made them.
    TLRubberBand* mainBand() const { return view->RubberBands().at(0); }
    TLRubberBand* guideBand() const { return view->RubberBands().at(1); }
    TLRubberBand* assistBand() const { return view->RubberBands().at(2); }
    static Ring pointsOf(const TLRubberBand* band);

    TLFeatureLayer* parcels = nullptr;
};

// Rings equal vertex by vertex, to within the rounding of the constructions.
void expectRings(const Rings& actual, const Rings& expected);
void expectRing(const Ring& actual, const Ring& expected);

}  // namespace TMObjects
