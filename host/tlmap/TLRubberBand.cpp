#include "tlmap/TLRubberBand.h"

#include <cmath>
#include <stdexcept>
#include <string>

#include "tlgeo/TLGeoPoint.h"
#include "tlgeo/TLGeoPolygon.h"
#include "tlgeo/TLGeoPolyline.h"
#include "tlmap/TLMapView.h"

namespace TMObjects {

namespace {

// A ring counts its distinct corners: a closing repeat of the first point adds nothing.
int ringCorners(const std::vector<TLPoint>& part) {
    const int n = int(part.size());
    if (n > 1 && part.front() == part.back()) return n - 1;
    return n;
}

}  // namespace

TLRubberBand::TLRubberBand(TLView* view, RubberBandType type) : mView(view), mType(type) {
    if (mView) mView->AddRubberBand(this);
}

TLRubberBand::~TLRubberBand() {
    if (mView) mView->RemoveRubberBand(this);
}

void TLRubberBand::Reset(RubberBandType type) {
    mParts.clear();
    mType = type;
}

void TLRubberBand::Clear() {
    mParts.clear();
}

void TLRubberBand::Update() {
    ++mUpdates;
    // Only a map view has someone to repaint the overlay.
    if (auto* view = dynamic_cast<TLMapView*>(mView)) view->RefreshOverlay();
}

int TLRubberBand::partIndex(int geometryIndex) const {
    const int count = GetGeometryCount();
    if (geometryIndex == -1 && count > 0) return count - 1;
    if (geometryIndex >= 0 && geometryIndex < count) return geometryIndex;
    throw std::out_of_range("rubber band has no part " + std::to_string(geometryIndex));
}

void TLRubberBand::AddPoint(const TLPoint& p, int geometryIndex) {
    // Opening a part is explicit (index == count), except that -1 on an empty band starts the
    // first one, so that a tool may draw with -1 from its first click.
    if (geometryIndex == GetGeometryCount() || (geometryIndex == -1 && mParts.empty())) {
        mParts.emplace_back();
        mParts.back().push_back(p);
        return;
    }
    mParts[std::size_t(partIndex(geometryIndex))].push_back(p);
}

TLPoint TLRubberBand::GetPoint(int pointIndex, int geometryIndex) const {
    const std::vector<TLPoint>& part = mParts[std::size_t(partIndex(geometryIndex))];
    if (pointIndex < 0 || pointIndex >= int(part.size()))
        throw std::out_of_range("rubber band part has no point " + std::to_string(pointIndex));
    return part[std::size_t(pointIndex)];
}

TLPoint TLRubberBand::RemoveLastPoint(int geometryIndex) {
    // The part itself stays, even when emptied, so that the indexes of later parts hold.
    std::vector<TLPoint>& part = mParts[std::size_t(partIndex(geometryIndex))];
    if (part.empty()) throw std::out_of_range("rubber band part is empty");
    const TLPoint last = part.back();
    part.pop_back();
    return last;
}

int TLRubberBand::GetPointCount(int geometryIndex) const {
    const int count = GetGeometryCount();
    if (geometryIndex == -1) geometryIndex = count - 1;
    if (geometryIndex < 0 || geometryIndex >= count) return 0;
    return int(mParts[std::size_t(geometryIndex)].size());
}

int TLRubberBand::GetCount() const {
    int n = 0;
    for (const auto& part : mParts) n += int(part.size());
    return n;
}

void TLRubberBand::ClosePoints(bool update, int geometryIndex) {
    const int count = GetGeometryCount();
    const int first = geometryIndex == -2 ? 0 : (geometryIndex == -1 ? count - 1 : geometryIndex);
    const int last = geometryIndex == -2 ? count - 1 : first;
    if (first < 0 || last >= count) return;
    for (int i = first; i <= last; ++i) {
        std::vector<TLPoint>& part = mParts[std::size_t(i)];
        if (!part.empty() && part.front() != part.back()) part.push_back(part.front());
    }
    if (update) Update();
}

TLRefPtr<TLGeometry> TLRubberBand::AsGeometry() {
    switch (mType) {
        case PointBand: {
            for (auto it = mParts.rbegin(); it != mParts.rend(); ++it) {
                if (it->empty()) continue;
                return TLRefPtr<TLGeometry>(new TLGeoPoint(it->back().x, it->back().y));
            }
            return {};
        }
        case LineBand: {
            TLRefPtr<TLGeoPolyline> line(new TLGeoPolyline());
            int paths = 0;
            for (const auto& part : mParts) {
                if (part.size() < 2) continue;
                line->BeginPath();
                line->BeginSegment();
                for (const TLPoint& p : part) line->AddXY(p.x, p.y);
                ++paths;
            }
            if (paths == 0) return {};
            line->EndEntity();
            return line;
        }
        case PolygonBand: {
            TLRefPtr<TLGeoPolygon> polygon(new TLGeoPolygon());
            int rings = 0;
            for (const auto& part : mParts) {
                if (ringCorners(part) < 3) continue;
                polygon->BeginPath();
                polygon->BeginSegment(1);
                for (const TLPoint& p : part) polygon->AddXY(p.x, p.y);
                if (part.front() != part.back()) polygon->AddXY(part.front().x, part.front().y);
                ++rings;
            }
            if (rings == 0) return {};
            polygon->EndEntity();
            return polygon;
        }
        default:
            return {};
    }
}

void TLRubberBand::SetPenStyle(TLPen::PenStyle style, const double& width, const TLColor& colour) {
    mPen.style = style;
    mPen.width = width;
    mPen.color = colour;
}

void TLRubberBand::SetBrushStyle(TLBrush::BrushStyle style, const TLColor& colour) {
    mBrush.style = style;
    mBrush.color = colour;
}

void TLRubberBand::RotateCoord(double cx, double cy, double angle, bool radians) {
    const double a = radians ? angle : angle * M_PI / 180.0;
    const double c = std::cos(a), s = std::sin(a);
    for (auto& part : mParts) {
        for (TLPoint& p : part) {
            const double dx = p.x - cx, dy = p.y - cy;
            p = TLPoint(cx + dx * c - dy * s, cy + dx * s + dy * c);
        }
    }
}

}  // namespace TMObjects
