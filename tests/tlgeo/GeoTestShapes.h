#pragma once

#include <initializer_list>
#include <vector>

#include "tlgeo/TLGeoPolygon.h"
#include "tlgeo/TLGeoPolyline.h"

namespace TMObjects {

// Shapes for the tests, each part given as x, y, x, y, ...
inline TLRefPtr<TLGeoPolygon> makePolygon(std::initializer_list<std::vector<double>> rings) {
    TLRefPtr<TLGeoPolygon> polygon(new TLGeoPolygon);
    for (const auto& ring : rings)
        polygon->CreateRing(const_cast<double*>(ring.data()), int(ring.size() / 2));
    polygon->EndEntity();
    return polygon;
}

inline TLRefPtr<TLGeoPolyline> makeLine(std::initializer_list<std::vector<double>> paths) {
    TLRefPtr<TLGeoPolyline> line(new TLGeoPolyline);
    for (const auto& path : paths)
        line->CreatePath(const_cast<double*>(path.data()), int(path.size() / 2));
    line->EndEntity();
    return line;
}

inline TLRefPtr<TLGeoPolygon> makeBox(double x0, double y0, double x1, double y1) {
    return makePolygon({{x0, y0, x1, y0, x1, y1, x0, y1}});
}

}  // namespace TMObjects
