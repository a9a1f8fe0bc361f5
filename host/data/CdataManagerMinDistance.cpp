#include <cmath>

#include "data/CdataManager.h"

namespace TMObjects {

int CdataManager::entity_GetMinDistance(int package, int entity, double x, double y, double& fx,
                                        double& fy, double& distance) const {
    CvectorPackageData* data = mPackages.getAt(package);
    CvectorEntityData* chunk = data ? data->entity_GetAt(entity) : nullptr;
    if (!chunk || chunk->point_GetSize() == 0) return -1;
    int nearest = -1;
    for (int i = 0; i < chunk->point_GetSize(); ++i) {
        double vx = 0.0, vy = 0.0;
        chunk->point_GetXY(i, &vx, &vy);
        const double d = std::hypot(vx - x, vy - y);
        // The first of equally near vertices wins.
        if (nearest >= 0 && !(d < distance)) continue;
        nearest = i;
        fx = vx;
        fy = vy;
        distance = d;
    }
    return nearest;
}

}  // namespace TMObjects
