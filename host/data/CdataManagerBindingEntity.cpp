#include "data/CEntityGeos.h"
#include "data/CdataManager.h"

namespace TMObjects {

int CdataManager::package_BindingEntity(int number, int flag) {
    CvectorPackageData* package = mPackages.getAt(number);
    if (!package) return -1;
    GEOSContextHandle_t h = TLGeosContext::Handle();

    std::vector<CvectorEntityData*> bound;
    std::vector<GEOSGeometry*> polygons;
    for (int i = 0; i < package->entity_GetSize(); ++i) {
        CvectorEntityData* entity = package->entity_GetAt(i);
        if (entity->entity_GetBindingFlag() != flag) continue;
        if (CEntityGeos::GeometryPtr polygon = CEntityGeos::PolygonOf(entity)) {
            bound.push_back(entity);
            polygons.push_back(polygon.release());
        }
    }
    if (bound.size() < 2) {
        for (GEOSGeometry* g : polygons) GEOSGeom_destroy_r(h, g);
        return 0;
    }
    std::vector<CEntityGeos::GeometryPtr> insides;
    for (GEOSGeometry* g : polygons) insides.emplace_back(GEOSPointOnSurface_r(h, g));
    CEntityGeos::GeometryPtr all(GEOSGeom_createCollection_r(
        h, GEOS_GEOMETRYCOLLECTION, polygons.data(), unsigned(polygons.size())));
    CEntityGeos::GeometryPtr merged(GEOSUnaryUnion_r(h, all.get()));

    // Each merged polygon goes to the first entity inside it; the others inside it go.
    std::vector<CvectorEntityData*> removed;
    for (CEntityGeos::GeometryPtr& shape : CEntityGeos::SinglePolygons(merged.get())) {
        CvectorEntityData* keeper = nullptr;
        const std::size_t before = removed.size();
        for (std::size_t i = 0; i < bound.size(); ++i) {
            if (!insides[i] || GEOSIntersects_r(h, shape.get(), insides[i].get()) != 1) continue;
            if (!keeper) {
                keeper = bound[i];
            } else {
                removed.push_back(bound[i]);
            }
        }
        if (keeper && removed.size() != before) CEntityGeos::FillPolygon(shape.get(), keeper);
    }
    for (CvectorEntityData* entity : removed) package->entity_Remove(entity);
    return int(removed.size());
}

}  // namespace TMObjects
