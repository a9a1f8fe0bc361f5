#include "mask/TLToolShieldPolygon.h"

#include "tlmap/TLToolBuddy.h"

namespace TMObjects {

namespace {

const int kControlModifier = 0x4000000;

}  // namespace

TLToolShieldPolygon::TLToolShieldPolygon() = default;

TLToolShieldPolygon::TLToolShieldPolygon(TLToolBuddy* buddy) : TLToolShieldAreas(buddy) {}

TLToolShieldPolygon::~TLToolShieldPolygon() = default;

TLPoint TLToolShieldPolygon::pointerPoint(int x, int y) {
    TLPoint point = ToMapCoordinates(TLPoint(x, y), nullptr);
    if (mBuddy->KeyboardModifiers() == kControlModifier && !points.empty())
        GetStraightLine(points.back(), point);
    return point;
}

bool TLToolShieldPolygon::OnMouseDown(TLMouseButton button, int x, int y) {
    if (!mapView()) return false;
    if (button != TLLeftButton) return true;
    points.push_back(pointerPoint(x, y));
    lastDevicePoint = TLPoint(x, y);
    return true;
}

bool TLToolShieldPolygon::OnDblClick(TLMouseButton, int, int) {
    if (!mapView()) return false;
    // The press of the double click has added its vertex already.
    if (points.size() >= 3 && enclosesArea()) applyMask(points);
    return true;
}

bool TLToolShieldPolygon::enclosesArea() const {
    // Some vertex lies off the line through the first one and another.
    const TLPoint& origin = points.front();
    for (std::size_t i = 1; i < points.size(); ++i) {
        const double ux = points[i].x - origin.x, uy = points[i].y - origin.y;
        for (std::size_t j = i + 1; j < points.size(); ++j) {
            const double vx = points[j].x - origin.x, vy = points[j].y - origin.y;
            if (ux * vy - uy * vx != 0) return true;
        }
    }
    return false;
}

bool TLToolShieldPolygon::OnMouseMove(TLMouseButton, int x, int y) {
    if (!mapView()) return false;
    if (points.empty()) return true;
    const TLPoint pointer = pointerPoint(x, y);
    if (points.size() == 1) {
        sketch(TLRubberBand::LineBand, {points.front(), pointer});
        return true;
    }
    std::vector<TLPoint> ring = points;
    ring.push_back(pointer);
    ring.push_back(points.front());
    sketch(TLRubberBand::PolygonBand, ring);
    return true;
}

}  // namespace TMObjects
