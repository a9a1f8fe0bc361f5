#include "tlgeo/TLGeoMultiPoint.h"

#include "tlgeo/TLGeometryCodec.h"

namespace TMObjects {

TLRefPtr<TLGeometry> TLGeoMultiPoint::Clone() {
    return TLRefPtr<TLGeometry>(new TLGeoMultiPoint(*this));
}

bool TLGeoMultiPoint::GetRawPoints(double** points, int& count) {
    return mParts.HandOut(points, count);
}

bool TLGeoMultiPoint::UpdateRawPoints(double* points) {
    return mParts.CopyIn(points);
}

bool TLGeoMultiPoint::open(TLFileFunc& file) {
    return TLGeometryCodec::ReadHeader(file, GeoMultipoint) &&
           TLGeometryCodec::ReadParts(file, mParts);
}

bool TLGeoMultiPoint::save(TLFileFunc& file) const {
    TLGeometryCodec::WriteHeader(file, GeoMultipoint);
    TLGeometryCodec::WriteParts(file, mParts);
    return true;
}

int TLGeoMultiPoint::AddPoint(double x, double y) {
    mParts.BeginPart();
    mParts.Add(x, y);
    return mParts.PointCount() - 1;
}

}  // namespace TMObjects
