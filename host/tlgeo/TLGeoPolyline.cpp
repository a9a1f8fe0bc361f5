#include "tlgeo/TLGeoPolyline.h"

#include "tlgeo/TLGeometryCodec.h"

namespace TMObjects {

TLGeoPolyline::TLGeoPolyline() : mParts(std::make_shared<TLPartList>()) {}

TLGeoPolyline::TLGeoPolyline(const TLGeoPolyline& other)
    : TLGeometry(other), mParts(std::make_shared<TLPartList>(*other.mParts)) {}

TLGeoPolyline& TLGeoPolyline::operator=(const TLGeoPolyline& other) {
    // Assigned into the existing list, so that views of this line see the new paths.
    if (this != &other) *mParts = *other.mParts;
    return *this;
}

double TLGeoPolyline::GetLength() const {
    double length = 0.0;
    for (int part = 0; part < mParts->PartCount(); ++part)
        length += TLGeoPath(mParts, part).GetLength();
    return length;
}

TLRefPtr<TLGeometry> TLGeoPolyline::Clone() {
    return TLRefPtr<TLGeometry>(new TLGeoPolyline(*this));
}

bool TLGeoPolyline::GetRawPoints(double** points, int& count) {
    return mParts->HandOut(points, count);
}

bool TLGeoPolyline::UpdateRawPoints(double* points) {
    return mParts->CopyIn(points);
}

bool TLGeoPolyline::AddRawPoints(double* xy, int count) {
    if (!xy || count <= 0) return false;
    mParts->AddPoints(xy, count);
    return true;
}

bool TLGeoPolyline::SetRawPointsZValue(double* z, int count) {
    return mParts->SetZValues(z, count);
}

bool TLGeoPolyline::GetRawPointsZValue(double** z, int& count) {
    return mParts->HandOutZ(z, count);
}

bool TLGeoPolyline::get_HasZ(bool* hasZ) {
    if (!hasZ) return false;
    *hasZ = mParts->HasZ();
    return true;
}

bool TLGeoPolyline::put_HasZ(bool hasZ) {
    mParts->SetHasZ(hasZ);
    return true;
}

bool TLGeoPolyline::Put_Z(double z) {
    mParts->FillZ(z);
    return true;
}

bool TLGeoPolyline::open(TLFileFunc& file) {
    return TLGeometryCodec::ReadHeader(file, GeoPolyline) &&
           TLGeometryCodec::ReadParts(file, *mParts);
}

bool TLGeoPolyline::save(TLFileFunc& file) const {
    TLGeometryCodec::WriteHeader(file, GeoPolyline);
    TLGeometryCodec::WriteParts(file, *mParts);
    return true;
}

int TLGeoPolyline::BeginPath() {
    mParts->BeginPart();
    return mParts->PartCount() - 1;
}

int TLGeoPolyline::BeginSegment() {
    return mParts->PartCount() - 1;
}

int TLGeoPolyline::AddXY(double x, double y) {
    mParts->Add(x, y);
    return mParts->PointCount() - 1;
}

int TLGeoPolyline::EndEntity() {
    mParts->DropEmptyParts();
    return mParts->PartCount();
}

void TLGeoPolyline::AddPoints(double* xy, int count) {
    mParts->AddPoints(xy, count);
}

void TLGeoPolyline::ClearPoints() {
    mParts->Clear();
}

TLRefPtr<TLGeoPath> TLGeoPolyline::GetPath(int index) {
    if (index < 0 || index >= mParts->PartCount()) return nullptr;
    return TLRefPtr<TLGeoPath>(new TLGeoPath(mParts, index));
}

TLRefPtr<TLGeoPath> TLGeoPolyline::CreatePath(double* xy, int count) {
    mParts->AddPart(xy, count);
    return GetPath(mParts->PartCount() - 1);
}

}  // namespace TMObjects
