#pragma once

#include "tlmap/TLAnnotationLayer.h"

class GDALDataset;
class OGRLayer;

namespace TMObjects {

// Annotation layers kept in a GeoPackage (or any format that keeps layer metadata). A table is
// annotation when its layer metadata has the item TL_ANNOTATION=1; TL_ANNOTATION_FIELD_KIND,
// TL_ANNOTATION_REFERENCE_SCALE and TL_ANNOTATION_GEOMETRY hold the family of its fields, its
// reference scale and the kind of its features' geometry (2, 11 or 13). The record of each
// feature lives in the fields of its row (TLAnnoMgrTool), read and written as any other field.
class TLOgrAnnotation {
public:
    // True, with the three settings, when the layer is annotation. A reference scale that is
    // missing or not above 0 reads as TLAnnotationLayer::kDefaultReferenceScale.
    static bool Describe(OGRLayer& layer, int& fieldKind, double& referenceScale, int& geometry);
    // Writes a new annotation table into the GeoPackage at `path` (made when it does not exist):
    // the fields of its family and the extra fields, the settings as layer metadata. False with
    // the reason when the file cannot be written or has such a table already.
    static bool CreateTable(const TLString& path, const TLString& name, int fieldKind,
                            double referenceScale, int geometry, const TLFields& extra,
                            TLCoordinateSystem* reference, TLString& error);
};

}  // namespace TMObjects
