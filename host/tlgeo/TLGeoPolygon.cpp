#include "tlgeo/TLGeoPolygon.h"

#include <cmath>

#include "tlgeo/TLGeometryCodec.h"
#include "tlgeo/TLRingNesting.h"

namespace TMObjects {

TLGeoPolygon::TLGeoPolygon() : mParts(std::make_shared<TLPartList>()) {}

TLGeoPolygon::TLGeoPolygon(const TLGeoPolygon& other)
    : TLGeometry(other), mParts(std::make_shared<TLPartList>(*other.mParts)) {}

TLGeoPolygon& TLGeoPolygon::operator=(const TLGeoPolygon& other) {
    // Assigned into the existing list, so that views of this polygon see the new rings.
    if (this != &other) *mParts = *other.mParts;
    return *this;
}

double TLGeoPolygon::GetArea() const {
    const TLRingNesting nesting(*mParts);
    double area = 0.0;
    for (int ring = 0; ring < mParts->PartCount(); ++ring) {
        const double a = std::fabs(TLRingNesting::SignedArea(*mParts, ring));
        area += nesting.IsHole(ring) ? -a : a;
    }
    return area;
}

double TLGeoPolygon::GetLength() const {
    double length = 0.0;
    for (int ring = 0; ring < mParts->PartCount(); ++ring) {
        const TLGeoPath path(mParts, ring);
        length += path.GetLength();
        // An open ring still has its closing edge.
        if (path.GetPointCount() > 2 && !path.IsClosed())
            length += std::sqrt(path.GetPoint(0).SqrDist(path.GetPoint(path.GetPointCount() - 1)));
    }
    return length;
}

TLRefPtr<TLGeometry> TLGeoPolygon::Clone() {
    return TLRefPtr<TLGeometry>(new TLGeoPolygon(*this));
}

bool TLGeoPolygon::GetRawPoints(double** points, int& count) {
    return mParts->HandOut(points, count);
}

bool TLGeoPolygon::UpdateRawPoints(double* points) {
    return mParts->CopyIn(points);
}

bool TLGeoPolygon::AddRawPoints(double* xy, int count) {
    if (!xy || count <= 0) return false;
    mParts->AddPoints(xy, count);
    return true;
}

bool TLGeoPolygon::SetRawPointsZValue(double* z, int count) {
    return mParts->SetZValues(z, count);
}

bool TLGeoPolygon::GetRawPointsZValue(double** z, int& count) {
    return mParts->HandOutZ(z, count);
}

bool TLGeoPolygon::get_HasZ(bool* hasZ) {
    if (!hasZ) return false;
    *hasZ = mParts->HasZ();
    return true;
}

bool TLGeoPolygon::put_HasZ(bool hasZ) {
    mParts->SetHasZ(hasZ);
    return true;
}

bool TLGeoPolygon::Put_Z(double z) {
    mParts->FillZ(z);
    return true;
}

bool TLGeoPolygon::open(TLFileFunc& file) {
    return TLGeometryCodec::ReadHeader(file, GeoPolygon) &&
           TLGeometryCodec::ReadParts(file, *mParts);
}

bool TLGeoPolygon::save(TLFileFunc& file) const {
    TLGeometryCodec::WriteHeader(file, GeoPolygon);
    TLGeometryCodec::WriteParts(file, *mParts);
    return true;
}

int TLGeoPolygon::BeginPath() {
    mParts->BeginPart();
    return mParts->PartCount() - 1;
}

int TLGeoPolygon::BeginSegment(int) {
    return mParts->PartCount() - 1;
}

int TLGeoPolygon::AddXY(double x, double y) {
    mParts->Add(x, y);
    return mParts->PointCount() - 1;
}

int TLGeoPolygon::EndEntity() {
    mParts->DropEmptyParts();
    mParts->CloseRings();
    return mParts->PartCount();
}

int TLGeoPolygon::Forward() {
    const TLRingNesting nesting(*mParts);
    int turned = 0;
    for (int ring = 0; ring < mParts->PartCount(); ++ring) {
        const double area = TLRingNesting::SignedArea(*mParts, ring);
        // Outer rings run counter-clockwise (positive area), holes clockwise.
        if ((nesting.IsHole(ring) && area > 0) || (!nesting.IsHole(ring) && area < 0)) {
            mParts->ReversePart(ring);
            ++turned;
        }
    }
    return turned;
}

TLRefPtr<TLGeoRing> TLGeoPolygon::GetRing(int index) {
    if (index < 0 || index >= mParts->PartCount()) return nullptr;
    return TLRefPtr<TLGeoRing>(new TLGeoRing(mParts, index));
}

TLRefPtr<TLGeoRing> TLGeoPolygon::CreateRing(double* xy, int count) {
    mParts->AddPart(xy, count);
    return GetRing(mParts->PartCount() - 1);
}

}  // namespace TMObjects
