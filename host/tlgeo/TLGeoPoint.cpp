#include "tlgeo/TLGeoPoint.h"

#include <cstdint>

#include "tlgeo/TLGeometryCodec.h"

namespace TMObjects {

TLRect TLGeoPoint::GetBound() {
    return mEmpty ? TLRect() : TLRect(mXY[0], mXY[0], mXY[1], mXY[1]);
}

TLRefPtr<TLGeometry> TLGeoPoint::Clone() {
    return TLRefPtr<TLGeometry>(new TLGeoPoint(*this));
}

bool TLGeoPoint::GetRawPoints(double** points, int& count) {
    count = mEmpty ? 0 : 1;
    if (!points) return false;
    *points = mEmpty ? nullptr : mXY;
    return !mEmpty;
}

bool TLGeoPoint::UpdateRawPoints(double* points) {
    if (!points) return false;
    PutCoords(points[0], points[1]);
    return true;
}

bool TLGeoPoint::get_HasZ(bool* hasZ) {
    if (!hasZ) return false;
    *hasZ = mHasZ;
    return true;
}

bool TLGeoPoint::put_HasZ(bool hasZ) {
    mHasZ = hasZ;
    if (!hasZ) mZ = 0.0;
    return true;
}

bool TLGeoPoint::Put_Z(double z) {
    mZ = z;
    mHasZ = true;
    return true;
}

bool TLGeoPoint::open(TLFileFunc& file) {
    std::uint8_t empty = 1, hasZ = 0;
    double xyz[3];
    if (!TLGeometryCodec::ReadHeader(file, GeoPoint) || !TLGeometryCodec::Read(file, empty) ||
        !TLGeometryCodec::Read(file, hasZ) || !TLGeometryCodec::Read(file, xyz) || empty > 1 ||
        hasZ > 1)
        return false;
    mEmpty = empty != 0;
    mHasZ = hasZ != 0;
    mXY[0] = xyz[0];
    mXY[1] = xyz[1];
    mZ = xyz[2];
    return true;
}

bool TLGeoPoint::save(TLFileFunc& file) const {
    TLGeometryCodec::WriteHeader(file, GeoPoint);
    TLGeometryCodec::Write(file, std::uint8_t(mEmpty ? 1 : 0));
    TLGeometryCodec::Write(file, std::uint8_t(mHasZ ? 1 : 0));
    const double xyz[3] = {mXY[0], mXY[1], mZ};
    TLGeometryCodec::Write(file, xyz);
    return true;
}

void TLGeoPoint::PutCoords(double x, double y) {
    mXY[0] = x;
    mXY[1] = y;
    mEmpty = false;
}

void TLGeoPoint::QueryCoords(double* x, double* y) const {
    if (x) *x = mXY[0];
    if (y) *y = mXY[1];
}

void TLGeoPoint::QueryCoordsXYZ(double* x, double* y, double* z) const {
    QueryCoords(x, y);
    if (z) *z = mZ;
}

void TLGeoPoint::SetEmpty() {
    mEmpty = true;
    mXY[0] = mXY[1] = 0.0;
}

}  // namespace TMObjects
