#include "tmgis/TLOgrAnnotation.h"

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <charconv>
#include <cstring>
#include <filesystem>
#include <string>

#include "tlmap/TLAnnoMgrTool.h"
#include "tmgis/TLGdalCall.h"
#include "tmgis/TLOgrSchema.h"

namespace TMObjects {

namespace {

const char kMark[] = "TL_ANNOTATION";
const char kKind[] = "TL_ANNOTATION_FIELD_KIND";
const char kScale[] = "TL_ANNOTATION_REFERENCE_SCALE";
const char kGeometry[] = "TL_ANNOTATION_GEOMETRY";

template <typename T>
T number(const char* text, T otherwise) {
    if (!text) return otherwise;
    T value = otherwise;
    const auto [end, failed] = std::from_chars(text, text + std::strlen(text), value);
    return failed == std::errc() ? value : otherwise;
}

std::string shortest(double value) {
    char text[40];
    return std::string(text, std::to_chars(text, text + sizeof text, value).ptr);
}

OGRwkbGeometryType ogrGeometry(int geometry) {
    if (geometry == TLAnnotationLayer::AnnoGeoPoint) return wkbPoint;
    if (geometry == TLAnnotationLayer::AnnoGeoLine) return wkbLineString;
    return wkbPolygon;
}

}  // namespace

bool TLOgrAnnotation::Describe(OGRLayer& layer, int& fieldKind, double& referenceScale,
                               int& geometry) {
    const char* mark = layer.GetMetadataItem(kMark);
    if (!mark || std::strcmp(mark, "1") != 0) return false;
    fieldKind = number(layer.GetMetadataItem(kKind), 0);
    referenceScale = number(layer.GetMetadataItem(kScale), 0.0);
    if (!(referenceScale > 0)) referenceScale = TLAnnotationLayer::kDefaultReferenceScale;
    geometry = number(layer.GetMetadataItem(kGeometry), int(TLAnnotationLayer::AnnoGeoPolygon));
    return true;
}

bool TLOgrAnnotation::CreateTable(const TLString& path, const TLString& name, int fieldKind,
                                  double referenceScale, int geometry, const TLFields& extra,
                                  TLCoordinateSystem* reference, TLString& error) {
    const std::string file = path.toStdString();
    TLGdalCall gdal;
    std::error_code missing;
    GDALDatasetUniquePtr dataset;
    if (std::filesystem::exists(file, missing)) {
        dataset.reset(GDALDataset::Open(file.c_str(), GDAL_OF_VECTOR | GDAL_OF_UPDATE));
    } else if (GDALDriver* driver = GetGDALDriverManager()->GetDriverByName("GPKG")) {
        dataset.reset(driver->Create(file.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
    }
    if (!dataset) {
        error = TLString("Cannot write " + file + ": " + gdal.Reason("GDAL cannot open it"));
        return false;
    }
    if (dataset->GetLayerByName(name.toStdString().c_str())) {
        error = TLString(file + " has a table " + name.toStdString() + " already");
        return false;
    }
    OGRSpatialReference srs;
    const bool located =
        reference &&
        srs.SetFromUserInput(reference->ExportToString().toStdString().c_str()) == OGRERR_NONE;
    srs.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    OGRLayer* layer = dataset->CreateLayer(name.toStdString().c_str(), located ? &srs : nullptr,
                                           ogrGeometry(geometry), nullptr);
    TLFields fields = extra;
    TLAnnoMgrTool::AddAnnotationFields(fieldKind, fields);
    for (int i = 0; layer && i < fields.GetFieldCount(); ++i) {
        OGRFieldType type;
        OGRFieldSubType subType;
        if (!TLOgrSchema::OgrFieldType(fields.GetField(i)->GetFieldType(), type, subType)) continue;
        OGRFieldDefn field(fields.GetField(i)->GetName().toStdString().c_str(), type);
        field.SetSubType(subType);
        if (layer->CreateField(&field) != OGRERR_NONE) layer = nullptr;
    }
    if (layer) {
        layer->SetMetadataItem(kMark, "1");
        layer->SetMetadataItem(kKind, std::to_string(fieldKind).c_str());
        layer->SetMetadataItem(kScale, shortest(referenceScale).c_str());
        layer->SetMetadataItem(kGeometry, std::to_string(geometry).c_str());
    }
    if (layer) dataset->FlushCache();
    if (!layer) {
        error = TLString("Cannot write the table " + name.toStdString() + " into " + file + ": " +
                         gdal.Reason("GDAL refused it"));
        return false;
    }
    return true;
}

}  // namespace TMObjects
