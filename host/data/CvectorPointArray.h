#pragma once

#include <vector>

namespace TMObjects {

// The vertices of an entity: x, y and z, by index. Out-of-range indexes are refused (false, or
// nothing changed), never undefined.
class CvectorPointArray {
public:
    int getSize() const { return int(mPoints.size()); }
    bool GetXY(int index, double* x, double* y) const;
    bool GetXYZ(int index, double* x, double* y, double* z) const;
    bool SetXY(int index, double x, double y);
    bool SetZ(int index, double z);
    // Appends and returns the new index.
    int add(double x, double y, double z = 0.0);
    // Inserts before `index` (index = getSize() appends); false for an index out of range.
    bool insertAt(int index, double x, double y, double z = 0.0);
    bool removeAt(int index);
    void removeAll() { mPoints.clear(); }

private:
    struct Point {
        double x, y, z;
    };
    std::vector<Point> mPoints;
};

}  // namespace TMObjects
