#include "data/CHelper.h"

#include "data/CvectorEntityData.h"
#include "tlgeo/TLGeoMultiPoint.h"
#include "tlgeo/TLGeoPoint.h"
#include "tlgeo/TLGeoPolygon.h"
#include "tlmap/TLLayer.h"

namespace TMObjects {

namespace {

void copyParts(const TLPartList& parts, bool withZ, CvectorEntityData* entity) {
    const bool z = withZ && parts.HasZ();
    for (int k = 0; k < parts.PartCount(); ++k) {
        entity->entity_BeginPath();
        entity->entity_BeginSegment(1);
        const int first = parts.PartStart(k);
        for (int i = first; i < first + parts.PartSize(k); ++i) {
            const TLPoint p = parts.Point(i);
            entity->point_Add(p.x, p.y, z ? parts.Z()[std::size_t(i)] : 0.0);
        }
    }
    entity->entity_SetHasZ(z);
}

void copyEnvelope(TLGeometry* envelope, CvectorEntityData* entity) {
    const TLRect r = envelope->GetBound();
    const double xy[] = {r.XMinimum(), r.YMinimum(), r.XMaximum(), r.YMinimum(), r.XMaximum(),
                         r.YMaximum(), r.XMinimum(), r.YMaximum(), r.XMinimum(), r.YMinimum()};
    entity->entity_BeginPath();
    entity->entity_BeginSegment(1);
    for (int i = 0; i < 5; ++i) entity->point_Add(xy[2 * i], xy[2 * i + 1]);
}

// The entity's vertices into `parts`, path by path.
void fillParts(const CvectorEntityBase* entity, bool withZ, bool closePaths, bool dropRepeats,
               TLPartList& parts) {
    const bool z = withZ && entity->entity_HasZ();
    std::vector<double> zs;
    for (int k = 0; k < entity->path_GetSize(); ++k) {
        int first = 0, count = 0;
        entity->path_GetRange(k, first, count);
        parts.BeginPart();
        double lastX = 0, lastY = 0;
        for (int i = first; i < first + count; ++i) {
            double x = 0, y = 0, zv = 0;
            entity->point_GetXYZ(i, &x, &y, &zv);
            if (dropRepeats && i > first && x == lastX && y == lastY) continue;
            parts.Add(x, y);
            zs.push_back(zv);
            lastX = x;
            lastY = y;
        }
        if (closePaths && count > 0 && !parts.IsPartClosed(parts.PartCount() - 1)) {
            double x = 0, y = 0, zv = 0;
            entity->point_GetXYZ(first, &x, &y, &zv);
            parts.Add(x, y);
            zs.push_back(zv);
        }
    }
    parts.DropEmptyParts();
    if (z) parts.SetZValues(zs.data(), int(zs.size()));
}

}  // namespace

bool CHelper::TmGeometryToChunkData(TLGeometry* geometry, CvectorEntityData* entity, bool withZ) {
    if (!entity) return false;
    entity->point_RemoveAll();
    entity->entity_SetHasZ(false);
    entity->entity_SetType(CvectorEntityBase::EntityUnknown);
    if (!geometry || geometry->IsEmpty()) return false;
    switch (geometry->GetType()) {
        case TLGeometry::GeoPolyline:
            entity->entity_SetType(CvectorEntityBase::EntityLine);
            copyParts(static_cast<TLGeoPolyline*>(geometry)->Parts(), withZ, entity);
            break;
        case TLGeometry::GeoPolygon:
            entity->entity_SetType(CvectorEntityBase::EntityPolygon);
            copyParts(static_cast<TLGeoPolygon*>(geometry)->Parts(), withZ, entity);
            break;
        case TLGeometry::GeoEnvelope:
            entity->entity_SetType(CvectorEntityBase::EntityPolygon);
            copyEnvelope(geometry, entity);
            break;
        case TLGeometry::GeoMultipoint:
            entity->entity_SetType(CvectorEntityBase::EntityPoint);
            copyParts(static_cast<TLGeoMultiPoint*>(geometry)->Parts(), withZ, entity);
            break;
        case TLGeometry::GeoPoint: {
            auto* point = static_cast<TLGeoPoint*>(geometry);
            entity->entity_SetType(CvectorEntityBase::EntityPoint);
            entity->entity_BeginPath();
            entity->point_Add(point->GetX(), point->GetY());
            break;
        }
        default:
            return false;
    }
    entity->entity_EndEntity();
    return entity->point_GetSize() > 0;
}

bool CHelper::TmPolylineToChunkData(TLGeometry* geometry, CvectorEntityData* entity, bool withZ) {
    if (!geometry || geometry->GetType() != TLGeometry::GeoPolyline) {
        if (entity) entity->point_RemoveAll();
        return false;
    }
    return TmGeometryToChunkData(geometry, entity, withZ);
}

bool CHelper::TmPolygonToChunkData(TLGeometry* geometry, CvectorEntityData* entity, bool withZ) {
    if (!geometry || (geometry->GetType() != TLGeometry::GeoPolygon &&
                      geometry->GetType() != TLGeometry::GeoEnvelope)) {
        if (entity) entity->point_RemoveAll();
        return false;
    }
    return TmGeometryToChunkData(geometry, entity, withZ);
}

TLRefPtr<TLGeoPolyline> CHelper::ChunkDataToTmPolyline(const CvectorEntityBase* entity, bool withZ,
                                                       bool closePaths, bool dropRepeats) {
    if (!entity || entity->point_GetSize() == 0) return nullptr;
    TLRefPtr<TLGeoPolyline> line(new TLGeoPolyline);
    fillParts(entity, withZ, closePaths, dropRepeats, line->Parts());
    return line;
}

TLRefPtr<TLGeometry> CHelper::ChunkDataToTmGeometry(const CvectorEntityBase* entity, int geoType,
                                                    bool withZ, bool closePaths, bool dropRepeats) {
    if (!entity || entity->point_GetSize() == 0) return nullptr;
    switch (geoType) {
        case TLGeometry::GeoPolyline:
            return ChunkDataToTmPolyline(entity, withZ, closePaths, dropRepeats);
        case TLGeometry::GeoPolygon: {
            // What the entity holds wins: a line asked for as a polygon comes back a line.
            if (entity->entity_GetType() == CvectorEntityBase::EntityLine)
                return ChunkDataToTmPolyline(entity, withZ, closePaths, dropRepeats);
            TLRefPtr<TLGeoPolygon> polygon(new TLGeoPolygon);
            fillParts(entity, withZ, true, dropRepeats, polygon->Parts());
            polygon->Forward();
            return polygon;
        }
        case TLGeometry::GeoMultipoint: {
            TLRefPtr<TLGeoMultiPoint> points(new TLGeoMultiPoint);
            fillParts(entity, withZ, false, dropRepeats, points->Parts());
            return points;
        }
        case TLGeometry::GeoPoint: {
            double x = 0, y = 0;
            entity->point_GetXY(0, &x, &y);
            return TLRefPtr<TLGeometry>(new TLGeoPoint(x, y));
        }
        default:
            return nullptr;
    }
}

int CHelper::layertype2gttype(int layerType) {
    switch (layerType) {
        case TLLayer::PointLayer:
        case TLLayer::MultiPointLayer:
            return CvectorEntityBase::EntityPoint;
        case TLLayer::LineLayer:
            return CvectorEntityBase::EntityLine;
        case TLLayer::PolygonLayer:
            return CvectorEntityBase::EntityPolygon;
        default:
            return CvectorEntityBase::EntityUnknown;
    }
}

}  // namespace TMObjects
