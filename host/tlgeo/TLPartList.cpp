#include "tlgeo/TLPartList.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace TMObjects {

namespace {

double segmentDistance(const TLPoint& p, const TLPoint& a, const TLPoint& b) {
    const double dx = b.x - a.x, dy = b.y - a.y;
    const double len2 = dx * dx + dy * dy;
    double t = 0.0;
    if (len2 > 0.0) t = std::clamp(((p.x - a.x) * dx + (p.y - a.y) * dy) / len2, 0.0, 1.0);
    return std::sqrt(p.SqrDist(a.x + t * dx, a.y + t * dy));
}

}  // namespace

int TLPartList::PartSize(int part) const {
    if (part < 0 || part >= PartCount()) return 0;
    const int end = part + 1 < PartCount() ? mStarts[std::size_t(part) + 1] : PointCount();
    return end - mStarts[std::size_t(part)];
}

int TLPartList::PartOf(int rawIndex) const {
    if (rawIndex < 0 || rawIndex >= PointCount()) return -1;
    // The last part starting at or before the index; empty parts share a start with the next.
    auto it = std::upper_bound(mStarts.begin(), mStarts.end(), rawIndex);
    return int(it - mStarts.begin()) - 1;
}

void TLPartList::Add(double x, double y) {
    if (mStarts.empty()) BeginPart();
    mXY.push_back(x);
    mXY.push_back(y);
    appendZ(1);
}

void TLPartList::AddPoints(const double* xy, int count) {
    if (mStarts.empty()) BeginPart();
    if (!xy || count <= 0) return;
    mXY.insert(mXY.end(), xy, xy + 2 * std::size_t(count));
    appendZ(count);
}

void TLPartList::AddPart(const double* xy, int count) {
    BeginPart();
    AddPoints(xy, count);
}

double* TLPartList::AppendPart(int count) {
    if (count <= 0) return nullptr;
    BeginPart();
    const std::size_t from = mXY.size();
    mXY.resize(from + 2 * std::size_t(count), 0.0);
    appendZ(count);
    return mXY.data() + from;
}

void TLPartList::Reserve(int points, int parts) {
    if (points > 0) mXY.reserve(2 * std::size_t(points));
    if (parts > 0) mStarts.reserve(std::size_t(parts));
    if (mHasZ && points > 0) mZ.reserve(std::size_t(points));
}

void TLPartList::Clear() {
    mXY.clear();
    mStarts.clear();
    mZ.clear();
}

void TLPartList::DropEmptyParts() {
    std::vector<int> kept;
    kept.reserve(mStarts.size());
    for (int part = 0; part < PartCount(); ++part) {
        if (PartSize(part) > 0) kept.push_back(mStarts[std::size_t(part)]);
    }
    mStarts.swap(kept);
}

bool TLPartList::IsPartClosed(int part) const {
    const int n = PartSize(part);
    if (n == 0) return false;
    const int first = PartStart(part);
    return Point(first) == Point(first + n - 1);
}

void TLPartList::CloseRings() {
    // Rebuilt in one pass, since every closing point shifts the parts after it.
    TLPartList closed;
    closed.mHasZ = mHasZ;
    for (int part = 0; part < PartCount(); ++part) {
        const int first = PartStart(part), n = PartSize(part);
        closed.AddPart(mXY.data() + 2 * std::size_t(first), n);
        if (mHasZ) std::copy_n(mZ.begin() + first, n, closed.mZ.end() - n);
        if (n > 0 && !IsPartClosed(part)) {
            closed.Add(mXY[2 * std::size_t(first)], mXY[2 * std::size_t(first) + 1]);
            if (mHasZ) closed.mZ.back() = mZ[std::size_t(first)];
        }
    }
    *this = std::move(closed);
}

void TLPartList::SetHasZ(bool hasZ) {
    mHasZ = hasZ;
    if (hasZ)
        mZ.resize(std::size_t(PointCount()), 0.0);
    else
        mZ.clear();
}

void TLPartList::FillZ(double z) {
    mHasZ = true;
    mZ.assign(std::size_t(PointCount()), z);
}

void TLPartList::appendZ(int count) {
    if (mHasZ) mZ.resize(mZ.size() + std::size_t(count), 0.0);
}

bool TLPartList::HandOut(double** points, int& count) {
    count = PointCount();
    if (!points) return false;
    *points = Raw();
    return *points != nullptr;
}

bool TLPartList::CopyIn(const double* points) {
    if (!points) return false;
    // memmove: the caller may hand back the very array it was given.
    if (!mXY.empty()) std::memmove(mXY.data(), points, sizeof(double) * mXY.size());
    return true;
}

bool TLPartList::SetZValues(const double* z, int count) {
    if (!z || count != PointCount()) return false;
    mHasZ = true;
    mZ.assign(z, z + count);
    return true;
}

bool TLPartList::HandOutZ(double** z, int& count) {
    count = 0;
    if (!z) return false;
    *z = nullptr;
    if (!mHasZ) return false;
    count = PointCount();
    *z = mZ.empty() ? nullptr : mZ.data();
    return true;
}

TLRect TLPartList::Bound() const {
    TLRect bound;
    for (int i = 0; i < PointCount(); ++i) bound.Union(Point(i));
    return bound;
}

int TLPartList::SegmentInfo(int* info) const {
    if (!info) return PartCount();
    for (int part = 0; part < PartCount(); ++part) {
        const int first = PartStart(part);
        info[4 * part] = part;
        info[4 * part + 1] = PartSize(part);
        info[4 * part + 2] = first;
        info[4 * part + 3] = first + PartSize(part) - 1;
    }
    return PartCount();
}

void TLPartList::ReversePart(int part) {
    const int n = PartSize(part);
    if (n < 2) return;
    const int first = PartStart(part);
    for (int i = 0, j = n - 1; i < j; ++i, --j) {
        std::swap(mXY[2 * std::size_t(first + i)], mXY[2 * std::size_t(first + j)]);
        std::swap(mXY[2 * std::size_t(first + i) + 1], mXY[2 * std::size_t(first + j) + 1]);
    }
    if (mHasZ) std::reverse(mZ.begin() + first, mZ.begin() + first + n);
}

bool TLPartList::NearestVertex(const TLPoint& p, double tolerance, int& part, int& rawIndex) const {
    part = rawIndex = -1;
    double best = tolerance;
    for (int i = 0; i < PointCount(); ++i) {
        const double d = std::sqrt(p.SqrDist(Point(i)));
        if (d <= best && (rawIndex < 0 || d < best)) {
            best = d;
            rawIndex = i;
        }
    }
    if (rawIndex >= 0) part = PartOf(rawIndex);
    return rawIndex >= 0;
}

bool TLPartList::NearestSegment(const TLPoint& p, double tolerance, bool closeRings, int& part,
                                int& rawIndex) const {
    part = rawIndex = -1;
    double best = tolerance;
    for (int k = 0; k < PartCount(); ++k) {
        const int first = PartStart(k), n = PartSize(k);
        // A lone point is a segment of zero length; a ring left open still has its closing edge.
        int segments = n == 1 ? 1 : n - 1;
        if (closeRings && n > 2 && !IsPartClosed(k)) segments = n;
        for (int s = 0; s < segments; ++s) {
            const int a = first + s, b = first + (s + 1) % n;
            const double d = segmentDistance(p, Point(a), Point(b));
            if (d <= best && (rawIndex < 0 || d < best)) {
                best = d;
                part = k;
                rawIndex = a;
            }
        }
    }
    return rawIndex >= 0;
}

}  // namespace TMObjects
