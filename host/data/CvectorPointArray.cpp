#include "data/CvectorPointArray.h"

namespace TMObjects {

bool CvectorPointArray::GetXY(int index, double* x, double* y) const {
    return GetXYZ(index, x, y, nullptr);
}

bool CvectorPointArray::GetXYZ(int index, double* x, double* y, double* z) const {
    if (index < 0 || index >= getSize()) return false;
    const Point& p = mPoints[std::size_t(index)];
    if (x) *x = p.x;
    if (y) *y = p.y;
    if (z) *z = p.z;
    return true;
}

bool CvectorPointArray::SetXY(int index, double x, double y) {
    if (index < 0 || index >= getSize()) return false;
    mPoints[std::size_t(index)].x = x;
    mPoints[std::size_t(index)].y = y;
    return true;
}

bool CvectorPointArray::SetZ(int index, double z) {
    if (index < 0 || index >= getSize()) return false;
    mPoints[std::size_t(index)].z = z;
    return true;
}

int CvectorPointArray::add(double x, double y, double z) {
    mPoints.push_back({x, y, z});
    return getSize() - 1;
}

bool CvectorPointArray::insertAt(int index, double x, double y, double z) {
    if (index < 0 || index > getSize()) return false;
    mPoints.insert(mPoints.begin() + index, Point{x, y, z});
    return true;
}

bool CvectorPointArray::removeAt(int index) {
    if (index < 0 || index >= getSize()) return false;
    mPoints.erase(mPoints.begin() + index);
    return true;
}

}  // namespace TMObjects
