// The geometry of the part connect tool: the crossings of the connect line with the features,
// and the reshaping of one object or the exchange of area between two polygons, on the data
// library's entities.
#include <algorithm>
#include <cmath>
#include <string>

#include "data/CHelper.h"
#include "data/CcurrencyFunc.h"
#include "data/CdataManager.h"
#include "data/CparameterSet.h"
#include "edit/TLToolPartConnect.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlsparef/TLGeoGraphicCoordinateSystem.h"
#include "tlsparef/TLProjectedCoordinateSystem.h"

namespace TMObjects {

namespace {

// Coordinates of this size or more cannot be degrees.
const double kDegreeBound = 180.000001;
// Degree-like coordinates without a geographic system are taken as this many units a degree.
const double kDegreeLikeScale = 100000.0;
// How close an end of the cut line must lie to a vertex of the object to stand at it. The limit
// at the end of a segment is ten times the one at its start, and stays so.
const double kStartLimit = 0.0001;
const double kEndLimit = 0.001;
const double kOnEdge = 0.0001;

bool meets(int code) {
    return code == 1234 || code == -1234 || code == 13 || code == 14 || code == 23 || code == 24;
}

void scaleGeometry(TLGeometry* geometry, double scale, bool divide) {
    if (!geometry || !(scale > 0.0) || scale == 1.0) return;
    double* xy = nullptr;
    int count = 0;
    if (!geometry->GetRawPoints(&xy, count) || !xy) return;
    for (int i = 0; i < 2 * count; ++i) xy[i] = divide ? xy[i] / scale : xy[i] * scale;
    geometry->UpdateRawPoints(xy);
}

TLPoint vertex(const CvectorEntityBase* entity, int index) {
    TLPoint p;
    entity->point_GetXY(index, &p.x, &p.y);
    return p;
}

double distance(const TLPoint& a, const TLPoint& b) {
    return std::hypot(a.x - b.x, a.y - b.y);
}

// Whether vertices k and k + 1 are a segment (of one path).
bool segment(const CvectorEntityBase* entity, int k) {
    return entity->path_Of(k) >= 0 && entity->path_Of(k) == entity->path_Of(k + 1);
}

void insertAfter(CvectorEntityBase* object, int index, const CvectorEntityBase* line,
                 bool reversed) {
    const int n = line->point_GetSize();
    for (int i = 0; i < n; ++i) {
        const TLPoint p = vertex(line, reversed ? n - 1 - i : i);
        object->point_InsertAt(index + 1 + i, p.x, p.y);
    }
}

void removeDownTo(CvectorEntityBase* object, int from, int to) {
    for (int i = from; i >= to; --i) object->point_RemoveAt(i);
}

// The position of an end of the cut line on the object, as ReSetLineObj finds it.
int positionOn(const CvectorEntityBase* object, const TLPoint& e) {
    for (int k = 0; k + 1 < object->point_GetSize(); ++k) {
        if (!segment(object, k)) continue;
        const TLPoint p = vertex(object, k), q = vertex(object, k + 1);
        if (std::fabs(e.x - p.x) < kStartLimit && std::fabs(e.y - p.y) < kStartLimit) return k;
        if (std::fabs(e.x - q.x) < kEndLimit && std::fabs(e.y - q.y) < kEndLimit) return k + 1;
        if (e.x >= std::min(p.x, q.x) && e.x <= std::max(p.x, q.x) && e.y >= std::min(p.y, q.y) &&
            e.y <= std::max(p.y, q.y))
            return k;
    }
    return 0;
}

// Inserts the line after vertex a (in order) or after vertex b (reversed) by which end lies
// nearer; nothing when both lie as near.
void insertByNearerEnd(CvectorEntityBase* object, CvectorEntityBase* line, int a, int b) {
    const TLPoint e0 = vertex(line, 0), e1 = vertex(line, line->point_GetSize() - 1);
    const double d0 = distance(e0, vertex(object, a)), d1 = distance(e1, vertex(object, b));
    if (d0 < d1)
        insertAfter(object, a, line, false);
    else if (d1 < d0)
        insertAfter(object, b, line, true);
}

}  // namespace

void TLToolPartConnect::convertLimits(CdataManager& manager) {
    const double bools = ToMapTolerance(manager.get_dBoolLimit());
    const double points = ToMapTolerance(manager.get_dPointLimit());
    const double areas = ToMapTolerance(manager.get_dAreaLimit());
    const double lines = ToMapTolerance(manager.get_dLineLimit());
    manager.set_dAreaLimit(areas);
    manager.set_dLineLimit(lines);
    manager.set_dBoolLimit(bools);
    manager.set_dPointLimit(points);
}

double TLToolPartConnect::workingScale(TLFeatureLayer* layer) const {
    double scale = 1.0;
    bool geographic = false;
    TLRefPtr<TLCoordinateSystem> system = layer->GetSpatialReference();
    if (auto* g = dynamic_cast<TLGeoGraphicCoordinateSystem*>(system.get())) {
        TLRefPtr<TLSpheroid> spheroid = g->getPSpheroid();
        if (spheroid) scale = spheroid->GetMajorAxis() * 2 * M_PI / 360;
        geographic = true;
    } else if (auto* p = dynamic_cast<TLProjectedCoordinateSystem*>(system.get())) {
        const double factor = p->GetLinearUnitFactor();
        scale = factor > 0.0 ? factor : 1.0;
    }
    const TLRect extent = layer->GetExtent();
    const double bounds[4] = {extent.XMinimum(), extent.XMaximum(), extent.YMinimum(),
                              extent.YMaximum()};
    bool degreeLike = true;
    for (double value : bounds)
        if (std::fabs(value) >= kDegreeBound) degreeLike = false;
    if (!degreeLike && geographic) scale = 1.0;
    if (degreeLike && !geographic) scale = kDegreeLikeScale;
    return scale;
}

bool TLToolPartConnect::process(TLFeatureLayer* layer, std::vector<TLRefPtr<TLFeature>>& features,
                                TLGeometry* line) {
    if (!layer || !line) return false;
    const TLLayer::LayerType type = layer->GetLayerType();
    if (type == TLLayer::LineLayer && features.size() != 1) return false;
    if (type == TLLayer::PolygonLayer && (features.empty() || features.size() > 2)) return false;
    if (type != TLLayer::LineLayer && type != TLLayer::PolygonLayer) return false;
    const double scale = workingScale(layer);

    CdataManager manager;
    convertLimits(manager);
    const int number = manager.package_Add();
    manager.setCurrPackageNo(number);
    CvectorPackageData* package = manager.package_GetAt(number);
    CRvLayer* packageLayer = package->GetLayers().getAt(package->GetLayers().add());
    packageLayer->SetLayerType(CHelper::layertype2gttype(type));
    packageLayer->GetFields().AddAttField("id", "id", 4, 10, 1, 1, 0);

    std::vector<CvectorEntityData*> objects;
    std::vector<TLFeature*> owners;
    for (std::size_t i = 0; i < features.size(); ++i) {
        TLRefPtr<TLGeometry> geometry =
            features[i]->GetGeometry() ? features[i]->GetGeometry()->Clone() : nullptr;
        const int index = package->entity_Add(1);
        CvectorEntityData* entity = package->entity_GetAt(index);
        const int kind = geometry ? geometry->GetType() : TLGeometry::GeoUnknown;
        scaleGeometry(geometry.get(), scale, false);
        if (kind == TLGeometry::GeoPolyline) {
            CHelper::TmPolylineToChunkData(geometry.get(), entity, false);
        } else if (kind == TLGeometry::GeoPolygon) {
            CHelper::TmPolygonToChunkData(geometry.get(), entity, false);
        } else {
            package->entity_RemoveAt(index);
            continue;
        }
        packageLayer->AddChunk(entity);
        entity->entity_ForeWard();
        entity->entity_SetAttribValueByName("id", TLString(std::to_string(i)));
        objects.push_back(entity);
        owners.push_back(features[i].get());
    }
    if (objects.empty()) return false;

    TLRefPtr<TLGeometry> scaledLine = line->Clone();
    scaleGeometry(scaledLine.get(), scale, false);
    double* xy = nullptr;
    int count = 0;
    scaledLine->GetRawPoints(&xy, count);
    CvectorEntityData* connect = package->entity_GetAt(package->entity_Add(1));
    connect->entity_SetType(CvectorEntityBase::EntityLine);
    connect->entity_BeginPath();
    connect->entity_BeginSegment(1);
    for (int i = 0; i < count; ++i)
        connect->point_SetXY(connect->point_Add(), xy[2 * i], xy[2 * i + 1]);
    connect->entity_EndEntity();

    if (objects.size() == 1)
        return connectOne(objects[0], connect, packageLayer->GetLayerType(), owners[0], scale);
    return connectTwo(package, objects[0], objects[1], connect, owners[0], owners[1], scale);
}

bool TLToolPartConnect::connectOne(CvectorEntityData* object, CvectorEntityData* line,
                                   int layerType, TLFeature* feature, double scale) {
    const double tolerance = CparameterSet::commonDot(10);
    int crossings = 0, startIndex = 0, endIndex = 0;
    TLPoint start, end;
    double bestToStart = 0, bestToEnd = 0;
    for (int i = 0; i + 1 < line->point_GetSize(); ++i) {
        const TLPoint a = vertex(line, i), b = vertex(line, i + 1);
        for (int k = 0; k + 1 < object->point_GetSize(); ++k) {
            if (!segment(object, k)) continue;
            const TLPoint c = vertex(object, k), d = vertex(object, k + 1);
            TLPoint x;
            if (!meets(CcurrencyFunc::edge_edge(a.x, a.y, b.x, b.y, c.x, c.y, d.x, d.y, &x.x, &x.y,
                                                tolerance)))
                continue;
            const double toStart = calcDis(line, i, x.x, x.y, false);
            const double toEnd = calcDis(line, i, x.x, x.y, true);
            if (++crossings == 1) {
                startIndex = i;
                endIndex = i + 1;
                start = end = x;
                bestToStart = toStart;
                bestToEnd = toEnd;
                continue;
            }
            if (toStart < bestToStart) {
                startIndex = i;
                start = x;
                bestToStart = toStart;
            }
            if (toEnd < bestToEnd) {
                endIndex = i + 1;
                end = x;
                bestToEnd = toEnd;
            }
        }
    }
    if (crossings <= 1) return false;

    // The line is cut to its stretch between the two outermost crossings.
    for (int i = line->point_GetSize() - 1; i > endIndex; --i) line->point_RemoveAt(i);
    line->point_SetXY(endIndex, end.x, end.y);
    line->point_SetXY(startIndex, start.x, start.y);
    for (int i = startIndex - 1; i >= 0; --i) line->point_RemoveAt(i);
    line->entity_EndEntity();

    CdataManager probe;
    convertLimits(probe);
    const TLPoint e0 = vertex(line, 0), e1 = vertex(line, line->point_GetSize() - 1);
    if (probe.point_InLine(object, e0.x, e0.y) && probe.point_InLine(object, e1.x, e1.y)) {
        if (layerType == CvectorEntityBase::EntityPolygon)
            ReSetPolygonObj(object, line);
        else
            ReSetLineObj(object, line);
    }
    object->entity_EndEntity();
    object->entity_CalcBox();

    TLRefPtr<TLGeometry> geometry = CHelper::ChunkDataToTmGeometry(
        object, feature->GetGeometry()->GetType(), false, false, false);
    if (!geometry) return false;
    scaleGeometry(geometry.get(), scale, true);
    feature->SetGeometry(geometry);
    return true;
}

double TLToolPartConnect::calcDis(CvectorEntityData* entity, int index, double x, double y,
                                  bool toEnd) {
    const int n = entity->point_GetSize();
    double length = 0.0;
    if (toEnd) {
        TLPoint from(x, y);
        for (int i = index + 1; i < n; ++i) {
            const TLPoint p = vertex(entity, i);
            length += distance(from, p);
            from = p;
        }
        return length;
    }
    for (int i = 0; i < index; ++i) length += distance(vertex(entity, i), vertex(entity, i + 1));
    return length + distance(vertex(entity, index), TLPoint(x, y));
}

CvectorEntityData* TLToolPartConnect::ReSetLineObj(CvectorEntityData* object,
                                                   CvectorEntityData* line) {
    const TLPoint e0 = vertex(line, 0), e1 = vertex(line, line->point_GetSize() - 1);
    const int a = positionOn(object, e0), b = positionOn(object, e1);
    if (b < a) {
        removeDownTo(object, a, b + 1);
        insertAfter(object, b, line, true);
    } else if (a < b) {
        removeDownTo(object, b, a + 1);
        insertAfter(object, a, line, false);
    } else {
        insertByNearerEnd(object, line, a, a);
    }
    return object;
}

CvectorEntityData* TLToolPartConnect::ReSetPolygonObj(CvectorEntityData* object,
                                                      CvectorEntityData* line) {
    if (!object->entity_TestClose()) return ReSetLineObj(object, line);
    const TLPoint e0 = vertex(line, 0), e1 = vertex(line, line->point_GetSize() - 1);
    const int n = object->point_GetSize();
    int a = 0, b = 0;
    for (int k = 0; k + 1 < n; ++k) {
        if (!segment(object, k)) continue;
        const TLPoint p = vertex(object, k), q = vertex(object, k + 1);
        if (CcurrencyFunc::point_EdgeSpace(e0.x, e0.y, p.x, p.y, q.x, q.y, nullptr, nullptr) <
            kOnEdge) {
            a = k;
            break;
        }
    }
    for (int k = n - 1; k >= 1; --k) {
        if (!segment(object, k - 1)) continue;
        const TLPoint p = vertex(object, k), q = vertex(object, k - 1);
        if (CcurrencyFunc::point_EdgeSpace(e1.x, e1.y, p.x, p.y, q.x, q.y, nullptr, nullptr) <
            kOnEdge) {
            b = k - 1;
            break;
        }
    }
    if (a == b) {
        insertByNearerEnd(object, line, a, b);
        return object;
    }
    int first = 0, last = 0;
    object->point_GetPathClose01(a, first, last);
    if (b < first || b > last) return nullptr;

    const int lo = std::min(a, b), hi = std::max(a, b);
    const int m1 = (a + b) / 2;
    int m2 = (lo - hi + last) / 2 + hi;
    if (m2 >= last) m2 -= last;
    const double d1 = distance(vertex(object, m1), e1) + distance(vertex(object, m1), e0);
    const double d2 = distance(vertex(object, m2), e1) + distance(vertex(object, m2), e0);
    if (d2 <= d1) {
        // The stretch over the ring's start goes; the ring is closed again at the end.
        if (b < a) {
            removeDownTo(object, last, a + 1);
            insertAfter(object, a, line, false);
            removeDownTo(object, b, first);
        } else {
            removeDownTo(object, last, b + 1);
            insertAfter(object, b, line, true);
            removeDownTo(object, a, first);
        }
        int ringFirst = 0, ringLast = 0;
        object->point_GetPathClose01(first, ringFirst, ringLast);
        const TLPoint start = vertex(object, ringFirst);
        object->point_InsertAt(ringLast + 1, start.x, start.y);
    } else if (b < a) {
        removeDownTo(object, a, b + 1);
        insertAfter(object, b, line, true);
    } else {
        removeDownTo(object, b, a + 1);
        insertAfter(object, a, line, false);
    }
    return object;
}

bool TLToolPartConnect::connectTwo(CvectorPackageData* package, CvectorEntityData* first,
                                   CvectorEntityData* second, CvectorEntityData* line,
                                   TLFeature* firstFeature, TLFeature* secondFeature,
                                   double scale) {
    const bool secondSmaller = second->point_GetSize() <= first->point_GetSize();
    CvectorEntityData* smaller = secondSmaller ? second : first;
    CvectorEntityData* larger = secondSmaller ? first : second;
    TLFeature* smallerFeature = secondSmaller ? secondFeature : firstFeature;
    TLFeature* largerFeature = secondSmaller ? firstFeature : secondFeature;

    const double tolerance = CparameterSet::commonDot(10);
    int crossings = 0, firstIndex = 0, lastIndex = 0;
    TLPoint c1, c2;
    for (int i = 0; i + 1 < line->point_GetSize(); ++i) {
        const TLPoint a = vertex(line, i), b = vertex(line, i + 1);
        for (int k = 0; k + 1 < smaller->point_GetSize(); ++k) {
            if (!segment(smaller, k)) continue;
            const TLPoint c = vertex(smaller, k), d = vertex(smaller, k + 1);
            TLPoint x;
            if (!meets(CcurrencyFunc::edge_edge(a.x, a.y, b.x, b.y, c.x, c.y, d.x, d.y, &x.x, &x.y,
                                                tolerance)))
                continue;
            if (++crossings == 1) {
                c1 = x;
                firstIndex = i;
            } else {
                c2 = x;
                lastIndex = i + 1;
            }
        }
    }
    if (crossings < 2) return false;
    line->point_InsertAt(lastIndex, c2.x, c2.y);
    line->point_InsertAt(firstIndex + 1, c1.x, c1.y);
    line->entity_EndEntity();

    std::vector<CvectorEntityData*> chunks, result;
    CutChunkByLine(package, line, smaller, chunks);
    package->entity_Remove(smaller);
    CvectorEntityData* keep = RemoveMaxChunk(chunks);
    if (!keep) return false;
    TogetherChunk(package, chunks, larger, result);
    package->entity_Remove(larger);
    if (result.empty()) return false;
    CvectorEntityData* merged = result.front();
    chunks.clear();
    result.clear();

    CutChunkByLine(package, line, merged, chunks);
    package->entity_Remove(merged);
    CvectorEntityData* grown = RemoveMaxChunk(chunks);
    if (!grown) return false;
    TLRefPtr<TLGeometry> largerShape = CHelper::ChunkDataToTmGeometry(
        grown, largerFeature->GetGeometry()->GetType(), false, false, false);
    if (!largerShape) return false;
    scaleGeometry(largerShape.get(), scale, true);
    largerFeature->SetGeometry(largerShape);

    TogetherChunk(package, chunks, keep, result);
    package->entity_Remove(keep);
    if (result.empty()) return false;
    TLRefPtr<TLGeometry> smallerShape = CHelper::ChunkDataToTmGeometry(
        result.front(), smallerFeature->GetGeometry()->GetType(), false, false, false);
    if (!smallerShape) return false;
    scaleGeometry(smallerShape.get(), scale, true);
    smallerFeature->SetGeometry(smallerShape);
    return true;
}

bool TLToolPartConnect::CutChunkByLine(CvectorPackageData* package, CvectorEntityData* line,
                                       CvectorEntityData* chunk,
                                       std::vector<CvectorEntityData*>& chunks) {
    CdataManager manager;
    convertLimits(manager);
    const int first = manager.package_Add(), second = manager.package_Add();
    CvectorPackageData* chunkPackage = manager.package_GetAt(first);
    chunkPackage->entity_SetAt(chunkPackage->entity_Add(1), chunk);
    CvectorPackageData* linePackage = manager.package_GetAt(second);
    linePackage->entity_SetAt(linePackage->entity_Add(1), line);
    manager.twoBoolOperate(first, second, 14, 0, 111);
    const CvectorPackageData* pieces = manager.package_GetAt(manager.package_GetUpperBound());

    const CRvLayer* layer = package->GetLayers().FindLayerByID(chunk->GetLayerID());
    for (int i = 0; i < pieces->entity_GetSize(); ++i) {
        const int index = package->entity_Add(1);
        package->entity_SetAt(index, pieces->entity_GetAt(i));
        CvectorEntityData* entity = package->entity_GetAt(index);
        if (layer) layer->AddChunk(entity);
        entity->entity_SetSelectFlag(1);
        entity->entity_CopyHandle(chunk);
        if (package->compSurfaceChunk(line, entity, 0) != 0) {
            entity->entity_ForeWard();
            chunks.push_back(entity);
        }
    }
    package->package_CalcEntityBox();
    return true;
}

CvectorEntityData* TLToolPartConnect::RemoveMaxChunk(std::vector<CvectorEntityData*>& chunks,
                                                     CvectorEntityData*) {
    if (chunks.empty()) return nullptr;
    auto largest = chunks.begin();
    for (auto it = chunks.begin(); it != chunks.end(); ++it)
        if ((*it)->entity_CalcAcreage(0) > (*largest)->entity_CalcAcreage(0)) largest = it;
    CvectorEntityData* removed = *largest;
    chunks.erase(largest);
    return removed;
}

bool TLToolPartConnect::TogetherChunk(CvectorPackageData* package,
                                      std::vector<CvectorEntityData*>& chunks,
                                      CvectorEntityData* chunk,
                                      std::vector<CvectorEntityData*>& result) {
    chunks.push_back(chunk);
    CdataManager manager;
    convertLimits(manager);
    const int number = manager.package_Add();
    manager.setCurrPackageNo(number);
    CvectorPackageData* together = manager.package_GetAt(number);
    for (CvectorEntityData* each : chunks) together->entity_SetAt(together->entity_Add(1), each);
    manager.currDataTopoOperate(2, 0, manager.get_dPointLimit(), 1, 111, 0);
    const int last = manager.package_GetUpperBound();
    CvectorPackageData* merged = manager.package_GetAt(last);
    for (int i = 0; i < merged->entity_GetSize(); ++i)
        merged->entity_GetAt(i)->entity_SetBindingFlag(1);
    manager.package_BindingEntity(last, 1);

    const CRvLayer* layer = package->GetLayers().FindLayerByID(chunk->GetLayerID());
    for (int i = 0; i < merged->entity_GetSize(); ++i) {
        const int index = package->entity_Add(1);
        package->entity_SetAt(index, merged->entity_GetAt(i));
        CvectorEntityData* entity = package->entity_GetAt(index);
        entity->entity_SetSelectFlag(1);
        entity->entity_CopyHandle(chunk);
        if (layer) {
            layer->AddChunk(entity);
            layer->StandEbField(entity);
        }
        result.push_back(entity);
    }
    package->package_CalcEntityBox();
    chunks.pop_back();
    return true;
}

}  // namespace TMObjects
