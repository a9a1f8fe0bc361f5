#include "mask/TLToolShieldRectangle.h"

#include <cmath>

#include "tlmap/TLMapView.h"

namespace TMObjects {

namespace {

// Pixels the second corner must lie from the first, both across and up or down.
const double kLeastDrag = 5.0;

}  // namespace

TLToolShieldRectangle::TLToolShieldRectangle() = default;

TLToolShieldRectangle::TLToolShieldRectangle(TLToolBuddy* buddy) : TLToolShieldAreas(buddy) {}

TLToolShieldRectangle::~TLToolShieldRectangle() = default;

bool TLToolShieldRectangle::OnMouseDown(TLMouseButton button, int x, int y) {
    if (!mapView()) return false;
    if (button != TLLeftButton) return true;
    if (!points.empty()) {
        takeSecondCorner(x, y);
        return true;
    }
    points.push_back(ToMapCoordinates(TLPoint(x, y), nullptr));
    lastDevicePoint = TLPoint(x, y);
    return true;
}

bool TLToolShieldRectangle::OnDblClick(TLMouseButton button, int x, int y) {
    if (!mapView()) return false;
    if (button == TLLeftButton && !points.empty()) takeSecondCorner(x, y);
    return true;
}

void TLToolShieldRectangle::takeSecondCorner(int x, int y) {
    if (std::fabs(x - lastDevicePoint.x) <= kLeastDrag ||
        std::fabs(y - lastDevicePoint.y) <= kLeastDrag)
        return;
    const TLPoint first = points.front();
    const TLPoint second = ToMapCoordinates(TLPoint(x, y), nullptr);
    const double a = first.x, c = first.y, b = second.x, d = second.y;
    applyMask({TLPoint(a, d), TLPoint(b, d), TLPoint(b, c), TLPoint(a, c), TLPoint(a, d)});
    points.clear();
    // Takes the last rectangle drawn off the view.
    mapView()->UpdateView(false);
}

bool TLToolShieldRectangle::OnMouseMove(TLMouseButton, int x, int y) {
    if (!mapView()) return false;
    if (points.size() != 1) return true;
    const TLPoint first = points.front();
    const TLPoint pointer = ToMapCoordinates(TLPoint(x, y), nullptr);
    sketch(TLRubberBand::PolygonBand,
           {first, TLPoint(pointer.x, first.y), pointer, TLPoint(first.x, pointer.y), first});
    return true;
}

}  // namespace TMObjects
