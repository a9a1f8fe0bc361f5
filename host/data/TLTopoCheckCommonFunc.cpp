#include "data/TLTopoCheckCommonFunc.h"

#include "data/CvectorPackageData.h"

namespace TMObjects {

namespace {

void dropRepeatedVertices(CvectorEntityData* entity) {
    for (int k = 0; k < entity->path_GetSize(); ++k) {
        int first = 0, count = 0;
        entity->path_GetRange(k, first, count);
        for (int i = first + count - 1; i > first; --i) {
            double x0 = 0, y0 = 0, x1 = 0, y1 = 0;
            entity->point_GetXY(i - 1, &x0, &y0);
            entity->point_GetXY(i, &x1, &y1);
            if (x0 == x1 && y0 == y1) entity->point_RemoveAt(i);
        }
    }
}

}  // namespace

bool TLTopoCheckCommonFunc::PreprocessingDataForOverlay(CvectorPackageData* package) {
    if (!package) return false;
    for (int i = 0; i < package->entity_GetSize(); ++i) {
        CvectorEntityData* entity = package->entity_GetAt(i);
        dropRepeatedVertices(entity);
        entity->entity_EndEntity();
        entity->entity_ForeWard();
    }
    return true;
}

}  // namespace TMObjects
