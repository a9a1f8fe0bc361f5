#pragma once

#include "tlbase/TLRefBase.h"
#include "tlgeo/TLGeoPolyline.h"
#include "tlgeo/TLGeometry.h"

namespace TMObjects {

class CRvFields;
class CRvLayer;
class CvectorEntityBase;
class CvectorEntityData;
class CvectorPackageData;
class TLFeatureLayer;
class TLFields;
class TLQueryFilter;

// Conversions between the host's geometries and layers and the entities of the data library.
class CHelper {
public:
    // Fills the entity with the geometry: a polyline's paths, a polygon's (or an envelope's)
    // rings as closed paths, a point or a multipoint as points. The entity is emptied first and
    // takes the kind of the geometry. With `withZ`, Z values are carried over when the geometry
    // has them. False for a null, empty or unknown geometry, the entity then being empty.
    static bool TmGeometryToChunkData(TLGeometry* geometry, CvectorEntityData* entity, bool withZ);
    // The same, for a polyline only (false for any other kind).
    static bool TmPolylineToChunkData(TLGeometry* geometry, CvectorEntityData* entity, bool withZ);
    // The same, for a polygon or an envelope only (false for any other kind).
    static bool TmPolygonToChunkData(TLGeometry* geometry, CvectorEntityData* entity, bool withZ);

    // A polyline of the entity's paths, in order. With `withZ` the entity's Z values come along;
    // with `closePaths` every path ends on its first vertex; with `dropRepeats` a vertex equal to
    // the one before it is left out. Null for an entity without vertices.
    static TLRefPtr<TLGeoPolyline> ChunkDataToTmPolyline(const CvectorEntityBase* entity,
                                                         bool withZ, bool closePaths,
                                                         bool dropRepeats);
    // A geometry of the asked kind (TLGeometry::GeoType: 2 point, 3 multipoint, 11 polyline,
    // 13 polygon, whose rings are closed and put in order) made of the entity's vertices; the
    // flags are those of ChunkDataToTmPolyline. A line entity asked for as a polygon gives a
    // polyline: a conversion never makes an area of a line. Null for another kind or an entity
    // without vertices.
    static TLRefPtr<TLGeometry> ChunkDataToTmGeometry(const CvectorEntityBase* entity, int geoType,
                                                      bool withZ, bool closePaths,
                                                      bool dropRepeats);

    // The package layer kind of a host layer kind: 1 point, 3 line, 4 polygon; 0 for others.
    static int layertype2gttype(int layerType);

    // Field definitions of the host and of the data library.
    static bool TmFieldsPtrToFields(const TLFields* fields, CRvFields& out);
    static bool StandFieldsLength(CRvFields& fields);
    static bool GetEditFieldDef(const CRvFields& from, CRvFields& to);
    // Copies the features of a host layer into entities of the package linked to `rvLayer`,
    // attributes included, the feature id as the attribute "OID". `selectedOnly` limits it to
    // the layer's selection, `filter` to the features that pass it. Returns the number copied.
    static int copyDataToPackage(TLFeatureLayer* layer, CvectorPackageData* package,
                                 CRvLayer* rvLayer, bool selectedOnly, TLQueryFilter* filter);
};

}  // namespace TMObjects
