#include "data/CvectorEntityBase.h"

#include <algorithm>
#include <cmath>

#include "data/CHelper.h"
#include "tlgeo/TLGeoPolygon.h"

namespace TMObjects {

bool CvectorEntityBase::point_GetXYZ(int index, double* x, double* y, double* z) const {
    return mPoints.GetXYZ(index, x, y, z);
}

int CvectorEntityBase::point_Add() {
    return point_Add(0.0, 0.0);
}

int CvectorEntityBase::point_Add(double x, double y, double z) {
    if (mPathStarts.empty()) mPathStarts.push_back(mPoints.getSize());
    return mPoints.add(x, y, z);
}

// Starts after `index` move by `delta`; the first path always starts at 0.
void CvectorEntityBase::shiftStarts(int index, int delta) {
    for (std::size_t k = 1; k < mPathStarts.size(); ++k)
        if (mPathStarts[k] >= index) mPathStarts[k] += delta;
}

bool CvectorEntityBase::point_InsertAt(int index, double x, double y, double z) {
    if (!mPoints.insertAt(index, x, y, z)) return false;
    if (mPathStarts.empty())
        mPathStarts.push_back(0);
    else
        shiftStarts(index, 1);
    return true;
}

bool CvectorEntityBase::point_RemoveAt(int index) {
    if (!mPoints.removeAt(index)) return false;
    shiftStarts(index + 1, -1);
    return true;
}

void CvectorEntityBase::point_RemoveAll() {
    mPoints.removeAll();
    mPathStarts.clear();
    mHasBox = false;
}

int CvectorEntityBase::point_GetPathClose01(int index, int& first, int& last) const {
    const int path = path_Of(index);
    int count = 0;
    if (path < 0 || !path_GetRange(path, first, count)) {
        first = last = -1;
        return -1;
    }
    last = first + count - 1;
    double x0 = 0, y0 = 0, x1 = 0, y1 = 0;
    mPoints.GetXY(first, &x0, &y0);
    mPoints.GetXY(last, &x1, &y1);
    return count >= 3 && x0 == x1 && y0 == y1 ? 1 : 0;
}

int CvectorEntityBase::entity_BeginPath() {
    mPathStarts.push_back(mPoints.getSize());
    return int(mPathStarts.size()) - 1;
}

int CvectorEntityBase::entity_BeginSegment(int) {
    return int(mPathStarts.size()) - 1;
}

int CvectorEntityBase::entity_EndEntity() {
    std::vector<int> kept;
    for (std::size_t k = 0; k < mPathStarts.size(); ++k) {
        const int end = k + 1 < mPathStarts.size() ? mPathStarts[k + 1] : mPoints.getSize();
        if (end > mPathStarts[k]) kept.push_back(mPathStarts[k]);
    }
    mPathStarts = kept;
    entity_CalcBox();
    return path_GetSize();
}

bool CvectorEntityBase::path_GetRange(int path, int& first, int& count) const {
    if (path < 0 || path >= path_GetSize()) return false;
    first = mPathStarts[std::size_t(path)];
    const int end =
        path + 1 < path_GetSize() ? mPathStarts[std::size_t(path) + 1] : mPoints.getSize();
    count = end - first;
    return true;
}

int CvectorEntityBase::path_Of(int index) const {
    if (index < 0 || index >= mPoints.getSize()) return -1;
    for (int k = path_GetSize() - 1; k >= 0; --k)
        if (mPathStarts[std::size_t(k)] <= index) return k;
    return -1;
}

void CvectorEntityBase::entity_CalcBox() {
    mHasBox = mPoints.getSize() > 0;
    if (!mHasBox) return;
    mBox[0] = mBox[2] = INFINITY;
    mBox[1] = mBox[3] = -INFINITY;
    for (int i = 0; i < mPoints.getSize(); ++i) {
        double x = 0, y = 0;
        mPoints.GetXY(i, &x, &y);
        mBox[0] = std::min(mBox[0], x);
        mBox[1] = std::max(mBox[1], x);
        mBox[2] = std::min(mBox[2], y);
        mBox[3] = std::max(mBox[3], y);
    }
}

bool CvectorEntityBase::entity_GetBox(double* minX, double* minY, double* maxX,
                                      double* maxY) const {
    if (!mHasBox) return false;
    if (minX) *minX = mBox[0];
    if (maxX) *maxX = mBox[1];
    if (minY) *minY = mBox[2];
    if (maxY) *maxY = mBox[3];
    return true;
}

double CvectorEntityBase::entity_CalcAcreage(int) const {
    if (mType != EntityPolygon) return 0.0;
    TLRefPtr<TLGeometry> polygon =
        CHelper::ChunkDataToTmGeometry(this, TLGeometry::GeoPolygon, false, false, false);
    return polygon ? polygon->GetArea() : 0.0;
}

bool CvectorEntityBase::entity_TestClose() const {
    if (path_GetSize() == 0) return false;
    for (int k = 0; k < path_GetSize(); ++k) {
        int first = 0, count = 0;
        path_GetRange(k, first, count);
        int a = 0, b = 0;
        if (point_GetPathClose01(first, a, b) != 1) return false;
    }
    return true;
}

void CvectorEntityBase::entity_ForeWard() {
    if (mType == EntityPolygon && mPoints.getSize() > 0) {
        TLRefPtr<TLGeometry> geometry =
            CHelper::ChunkDataToTmGeometry(this, TLGeometry::GeoPolygon, mHasZ, false, false);
        auto* polygon = dynamic_cast<TLGeoPolygon*>(geometry.get());
        if (polygon) {
            polygon->Forward();
            CvectorEntityBase ordered;
            ordered.mType = EntityPolygon;
            ordered.mHasZ = mHasZ;
            const TLPartList& parts = polygon->Parts();
            for (int k = 0; k < parts.PartCount(); ++k) {
                ordered.entity_BeginPath();
                for (int i = parts.PartStart(k); i < parts.PartStart(k) + parts.PartSize(k); ++i) {
                    const TLPoint p = parts.Point(i);
                    ordered.point_Add(p.x, p.y, parts.HasZ() ? parts.Z()[std::size_t(i)] : 0.0);
                }
            }
            mPoints = ordered.mPoints;
            mPathStarts = ordered.mPathStarts;
        }
    }
    entity_CalcBox();
}

void CvectorEntityBase::entity_CopyData(const CvectorEntityBase* other) {
    if (!other || other == this) return;
    *this = *other;
}

}  // namespace TMObjects
