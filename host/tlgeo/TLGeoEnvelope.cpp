#include "tlgeo/TLGeoEnvelope.h"

#include <algorithm>

#include "tlgeo/TLGeometryCodec.h"

namespace TMObjects {

TLGeoEnvelope::TLGeoEnvelope(double xmin, double ymin, double xmax, double ymax) {
    PutCoord(xmin, ymin, xmax, ymax);
}

TLGeoEnvelope::TLGeoEnvelope(TLRect rect) {
    if (!rect.IsEmpty())
        PutCoord(rect.XMinimum(), rect.YMinimum(), rect.XMaximum(), rect.YMaximum());
}

double TLGeoEnvelope::GetArea() const {
    double x0, y0, x1, y1;
    QueryCoords(&x0, &y0, &x1, &y1);
    return mEmpty ? 0.0 : (x1 - x0) * (y1 - y0);
}

double TLGeoEnvelope::GetLength() const {
    double x0, y0, x1, y1;
    QueryCoords(&x0, &y0, &x1, &y1);
    return mEmpty ? 0.0 : 2.0 * ((x1 - x0) + (y1 - y0));
}

TLRect TLGeoEnvelope::GetBound() {
    return mEmpty ? TLRect() : TLRect(mXY[0], mXY[2], mXY[1], mXY[3]);
}

TLRefPtr<TLGeometry> TLGeoEnvelope::Clone() {
    return TLRefPtr<TLGeometry>(new TLGeoEnvelope(*this));
}

bool TLGeoEnvelope::GetRawPoints(double** points, int& count) {
    count = mEmpty ? 0 : 2;
    if (!points) return false;
    *points = mEmpty ? nullptr : mXY;
    return !mEmpty;
}

bool TLGeoEnvelope::UpdateRawPoints(double* points) {
    if (!points) return false;
    PutCoord(points[0], points[1], points[2], points[3]);
    return true;
}

bool TLGeoEnvelope::open(TLFileFunc& file) {
    std::uint8_t empty = 1;
    double xy[4];
    if (!TLGeometryCodec::ReadHeader(file, GeoEnvelope) || !TLGeometryCodec::Read(file, empty) ||
        !TLGeometryCodec::Read(file, xy) || empty > 1)
        return false;
    if (empty)
        mEmpty = true;
    else
        PutCoord(xy[0], xy[1], xy[2], xy[3]);
    return true;
}

bool TLGeoEnvelope::save(TLFileFunc& file) const {
    TLGeometryCodec::WriteHeader(file, GeoEnvelope);
    TLGeometryCodec::Write(file, std::uint8_t(mEmpty ? 1 : 0));
    TLGeometryCodec::Write(file, mXY);
    return true;
}

void TLGeoEnvelope::PutCoord(double xmin, double ymin, double xmax, double ymax) {
    mXY[0] = xmin;
    mXY[1] = ymin;
    mXY[2] = xmax;
    mXY[3] = ymax;
    mEmpty = false;
    normalise();
}

void TLGeoEnvelope::QueryCoords(double* xmin, double* ymin, double* xmax, double* ymax) const {
    // The corners handed out by GetRawPoints may have been written out of order since.
    if (xmin) *xmin = std::min(mXY[0], mXY[2]);
    if (ymin) *ymin = std::min(mXY[1], mXY[3]);
    if (xmax) *xmax = std::max(mXY[0], mXY[2]);
    if (ymax) *ymax = std::max(mXY[1], mXY[3]);
}

void TLGeoEnvelope::normalise() {
    if (mXY[0] > mXY[2]) std::swap(mXY[0], mXY[2]);
    if (mXY[1] > mXY[3]) std::swap(mXY[1], mXY[3]);
}

}  // namespace TMObjects
