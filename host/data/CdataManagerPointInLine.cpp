#include <algorithm>
#include <cmath>

#include "data/CcurrencyFunc.h"
#include "data/CdataManager.h"

namespace TMObjects {

int CdataManager::point_InLine(const CvectorEntityData* object, double x, double y) const {
    if (!object) return 0;
    const double tolerance =
        std::max(mPointLimit, 1e-9 * std::max({std::fabs(x), std::fabs(y), 1.0}));
    for (int k = 0; k < object->path_GetSize(); ++k) {
        int first = 0, count = 0;
        object->path_GetRange(k, first, count);
        for (int i = first; i < first + count; ++i) {
            double ax = 0, ay = 0, bx = 0, by = 0;
            object->point_GetXY(i, &ax, &ay);
            // A path of one vertex is that point; the others are walked segment by segment.
            const int next = count == 1 ? i : i + 1;
            if (next >= first + count) break;
            object->point_GetXY(next, &bx, &by);
            if (CcurrencyFunc::point_EdgeSpace(x, y, ax, ay, bx, by, nullptr, nullptr) <= tolerance)
                return 1;
        }
    }
    return 0;
}

}  // namespace TMObjects
