#pragma once

#include <ogr_core.h>

#include <memory>
#include <string>

#include "tlgeo/TLGeometry.h"
#include "tlsde/TLFeature.h"

class OGRFeature;
class OGRGeometry;

namespace TMObjects {

// Values and geometries between OGR features and the host's. Geometries cross as ISO
// well-known binary. Only the host's data code includes this header: it brings GDAL's own
// headers with it.
class TLOgrValues {
public:
    // A field's value as the host holds it; null when the field is unset or null. Dates come as
    // ISO 8601 text. Single-precision reals come rounded to single precision, as the host's float
    // fields keep them, so that an untouched value compares equal to what the store has.
    static TLVariant Read(const OGRFeature& feature, int index);
    // Sets one field; a null value makes it null. False with a reason for a date that does not
    // read as one.
    static bool Write(OGRFeature& feature, int index, const TLVariant& value, std::string& error);

    // The host's geometry; curves come as their linear approximation. Null for a geometry the
    // host cannot hold (a collection that mixes dimensions).
    static TLRefPtr<TLGeometry> ReadGeometry(const OGRGeometry* geometry);
    // An OGR geometry conformed to the layer's type (a polygon for a multipolygon layer becomes a
    // multipolygon; Z is added or dropped as the layer has it). A geometry the layer cannot hold
    // is refused with the reason, so that no store is left with a shape its readers do not
    // expect: one of another kind (a point for a polygon layer, a polygon for a line layer), or,
    // with `singleMeansSingle`, one of several parts for a layer of single parts. Formats whose
    // single-part layers take several parts (a Shapefile's) pass false. A layer of any geometry
    // takes everything.
    static std::unique_ptr<OGRGeometry> MakeGeometry(TLGeometry* geometry,
                                                     OGRwkbGeometryType layerType,
                                                     std::string& error,
                                                     bool singleMeansSingle = true);

    // The host's feature: the OGR id as id, the values of the table's fields (the id field
    // carries the id), the geometry. `geometryLost` tells a geometry the host could not read.
    static TLFeature ReadFeature(const OGRFeature& feature, const TLFields& fields,
                                 bool& geometryLost);
    // Brings `target` to the host feature's values and geometry. Only what differs from what
    // `target` holds is written, so that a curve or a date-time the host holds approximately is
    // kept as stored while the user did not change it. A null geometry leaves the stored one
    // alone: the host never clears a geometry, and one it could not read must survive.
    static bool Apply(const TLFeature& feature, OGRFeature& target, OGRwkbGeometryType layerType,
                      std::string& error, bool singleMeansSingle = true);
};

}  // namespace TMObjects
