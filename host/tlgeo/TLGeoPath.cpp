#include "tlgeo/TLGeoPath.h"

#include "tlgeo/TLRingNesting.h"

#include <cmath>
#include <limits>

namespace TMObjects {

TLGeoPath::TLGeoPath() : mList(std::make_shared<TLPartList>()) {
    mList->BeginPart();
}

TLGeoPath::TLGeoPath(const double* xy, int count) : mList(std::make_shared<TLPartList>()) {
    mList->AddPart(xy, count);
}

TLGeoPath::TLGeoPath(std::shared_ptr<TLPartList> list, int part)
    : mList(list ? std::move(list) : std::make_shared<TLPartList>()), mPart(part) {}

int TLGeoPath::GetPointCount() const {
    return mList->PartSize(mPart);
}

const double* TLGeoPath::first() const {
    if (GetPointCount() == 0) return nullptr;
    return mList->Raw() + 2 * std::size_t(mList->PartStart(mPart));
}

TLPoint TLGeoPath::GetPoint(int i) const {
    if (i < 0 || i >= GetPointCount()) {
        const double nan = std::numeric_limits<double>::quiet_NaN();
        return TLPoint(nan, nan);
    }
    return mList->Point(mList->PartStart(mPart) + i);
}

bool TLGeoPath::GetRawPoints(double** points, int& count) {
    count = GetPointCount();
    if (!points) return false;
    *points = const_cast<double*>(first());
    return *points != nullptr;
}

bool TLGeoPath::GetRawPointsZValue(double** z, int& count) {
    count = 0;
    if (!z) return false;
    *z = nullptr;
    if (!mList->HasZ() || GetPointCount() == 0) return false;
    count = GetPointCount();
    *z = mList->Z().data() + mList->PartStart(mPart);
    return true;
}

bool TLGeoPath::IsClosed() const {
    return GetPointCount() > 1 && mList->IsPartClosed(mPart);
}

double TLGeoPath::GetLength() const {
    double length = 0.0;
    for (int i = 1; i < GetPointCount(); ++i)
        length += std::sqrt(GetPoint(i).SqrDist(GetPoint(i - 1)));
    return length;
}

double TLGeoRing::GetSignedArea() const {
    return GetPointCount() == 0 ? 0.0 : TLRingNesting::SignedArea(*mList, mPart);
}

double TLGeoRing::GetArea() const {
    return std::fabs(GetSignedArea());
}

}  // namespace TMObjects
