#pragma once

#include <ogr_core.h>

#include "tlmap/TLLayer.h"
#include "tlsde/TLField.h"

class GDALDataset;
class OGRFieldDefn;
class OGRLayer;

namespace TMObjects {

// How an OGR layer's schema reads in the host: field types, the kind of layer, the table's
// fields. Only the host's data code includes this header: it brings GDAL's own headers with it.
class TLOgrSchema {
public:
    // The host's type of an OGR field; false for types the host has no field for (times of day,
    // binary, lists). Such fields stay out of the table and are kept in the store as they are.
    static bool FieldType(const OGRFieldDefn& field, TLField::FieldType& type);
    // The OGR type and subtype that store a host field type; false for the id and geometry.
    static bool OgrFieldType(TLField::FieldType type, OGRFieldType& ogrType,
                             OGRFieldSubType& subType);
    // Point and multipoint layers are point layers, lines and polygons likewise with their
    // multi forms; anything else (collections, no geometry) is of no kind a tool edits.
    static TLLayer::LayerType LayerKind(OGRwkbGeometryType type);
    // The id column (when the format names one) as the id field, the geometry column (likewise),
    // then every field with a host type, in the layer's order, with its alias and, when the
    // dataset is given, its domain (coded values, or a range).
    static TLFields Fields(OGRLayer& layer, GDALDataset* dataset = nullptr);
};

}  // namespace TMObjects
