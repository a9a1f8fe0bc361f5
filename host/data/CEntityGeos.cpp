#include "data/CEntityGeos.h"

#include "data/CHelper.h"
#include "data/CvectorEntityBase.h"
#include "tlgeo/TLGeoPolygon.h"
#include "tlgeo/TLGeosConverter.h"

namespace TMObjects {

CEntityGeos::GeometryPtr CEntityGeos::PolygonOf(const CvectorEntityBase* entity) {
    if (!entity || entity->entity_GetType() != CvectorEntityBase::EntityPolygon) return nullptr;
    TLRefPtr<TLGeometry> polygon =
        CHelper::ChunkDataToTmGeometry(entity, TLGeometry::GeoPolygon, false, true, true);
    if (!polygon) return nullptr;
    GeometryPtr geos = TLGeosConverter::ToGeos(polygon.get());
    GEOSContextHandle_t h = TLGeosContext::Handle();
    if (!geos || GEOSisEmpty_r(h, geos.get()) != 0) return nullptr;
    if (GEOSisValid_r(h, geos.get()) == 1) return geos;
    // Only the areal part of a repaired shape counts: the lines a bow tie's waist leaves have
    // no area to cut.
    GeometryPtr valid(GEOSMakeValid_r(h, geos.get()));
    if (!valid) return nullptr;
    std::vector<GeometryPtr> parts = SinglePolygons(valid.get());
    if (parts.empty()) return nullptr;
    std::vector<GEOSGeometry*> raw;
    for (GeometryPtr& part : parts) raw.push_back(part.release());
    GeometryPtr collection(
        GEOSGeom_createCollection_r(h, GEOS_MULTIPOLYGON, raw.data(), unsigned(raw.size())));
    return GeometryPtr(GEOSUnaryUnion_r(h, collection.get()));
}

CEntityGeos::GeometryPtr CEntityGeos::LinesOf(const CvectorEntityBase* entity) {
    if (!entity || entity->point_GetSize() == 0) return nullptr;
    const bool rings = entity->entity_GetType() == CvectorEntityBase::EntityPolygon;
    TLRefPtr<TLGeoPolyline> line = CHelper::ChunkDataToTmPolyline(entity, false, rings, true);
    return line ? TLGeosConverter::ToGeos(line.get()) : nullptr;
}

bool CEntityGeos::FillPolygon(const GEOSGeometry* polygon, CvectorEntityBase* entity) {
    if (!polygon || !entity) return false;
    // Every ring starts at its least vertex (smallest x, then smallest y), whatever order the
    // operation that made it left it in.
    GeometryPtr normal(GEOSGeom_clone_r(TLGeosContext::Handle(), polygon));
    GEOSNormalize_r(TLGeosContext::Handle(), normal.get());
    TLRefPtr<TLGeometry> geometry = TLGeosConverter::FromGeos(normal.get(), TLGeometry::GeoPolygon);
    auto* rings = dynamic_cast<TLGeoPolygon*>(geometry.get());
    if (!rings || rings->IsEmpty()) return false;
    CvectorEntityBase filled;
    filled.entity_SetType(CvectorEntityBase::EntityPolygon);
    const TLPartList& parts = rings->Parts();
    for (int k = 0; k < parts.PartCount(); ++k) {
        filled.entity_BeginPath();
        filled.entity_BeginSegment(1);
        for (int i = parts.PartStart(k); i < parts.PartStart(k) + parts.PartSize(k); ++i) {
            const TLPoint p = parts.Point(i);
            filled.point_Add(p.x, p.y);
        }
    }
    filled.entity_EndEntity();
    filled.entity_ForeWard();
    entity->entity_CopyData(&filled);
    return true;
}

std::vector<CEntityGeos::GeometryPtr> CEntityGeos::SinglePolygons(const GEOSGeometry* geometry) {
    std::vector<GeometryPtr> out;
    GEOSContextHandle_t h = TLGeosContext::Handle();
    if (!geometry || GEOSisEmpty_r(h, geometry) != 0) return out;
    const int type = GEOSGeomTypeId_r(h, geometry);
    if (type == GEOS_POLYGON) {
        out.emplace_back(GEOSGeom_clone_r(h, geometry));
    } else if (type == GEOS_MULTIPOLYGON || type == GEOS_GEOMETRYCOLLECTION) {
        for (int i = 0; i < GEOSGetNumGeometries_r(h, geometry); ++i)
            for (GeometryPtr& part : SinglePolygons(GEOSGetGeometryN_r(h, geometry, i)))
                out.push_back(std::move(part));
    }
    return out;
}

double CEntityGeos::Area(const GEOSGeometry* geometry) {
    double area = 0.0;
    if (geometry) GEOSArea_r(TLGeosContext::Handle(), geometry, &area);
    return area;
}

}  // namespace TMObjects
