#pragma once

#include <string>
#include <utility>
#include <vector>

#include "SessionFixture.h"
#include "tlmap/TLRubberBand.h"

namespace TMObjects {

using XY = std::pair<double, double>;
using Path = std::vector<XY>;
using Paths = std::vector<Path>;
// A polygon's ring, closing vertex included, read like a path.
using Ring = Path;
using Rings = Paths;
using Texts = std::vector<std::string>;

// A digitizing command at work on the fixture's view of one map unit a pixel. The helpers speak
// map coordinates, as the user aims at them: device x is map x, device y is 600 - map y.
class CommandSession : public SessionFixture {
protected:
    void move(double x, double y);
    // A press and release without a move before it: the press keeps the last move's snap.
    void press(double x, double y, TLMouseButton button = TLLeftButton);
    // A move to the point, then a press and release there.
    void click(double x, double y, TLMouseButton button = TLLeftButton);
    // Each point clicked in turn.
    void clickAll(const Path& points);
    // The press of a double click at the point has added its vertex; this is the double click
    // that follows it.
    bool doubleClick(double x, double y);
    bool type(const char* text) { return dispatcher->TypeLine(text); }

    // A feature of one line with the given vertices, written straight to the layer (nothing to
    // undo); returns its id.
    int addLine(TLFeatureLayer* layer, const Path& vertices);
    // The paths of a line feature or the rings of a polygon feature; none for anything else.
    Paths partsOf(TLFeatureLayer* layer, int id) const;
    // The parts of the only feature of `layer`; fails the test when there is not exactly one.
    Paths onlyFeatureParts(TLFeatureLayer* layer) const;
    // What a band shows, all parts in order.
    static Path pointsOf(const TLRubberBand* band);
};

// Vertex by vertex, to within the rounding of the constructions.
void expectPath(const Path& actual, const Path& expected);
void expectPaths(const Paths& actual, const Paths& expected);
inline void expectRing(const Ring& actual, const Ring& expected) {
    expectPath(actual, expected);
}
inline void expectRings(const Rings& actual, const Rings& expected) {
    expectPaths(actual, expected);
}

}  // namespace TMObjects
