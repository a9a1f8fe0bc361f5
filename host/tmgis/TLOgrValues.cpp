#include "tmgis/TLOgrValues.h"

#include <ogrsf_frmts.h>

#include <cmath>
#include <cstdio>

#include "tlgeo/TLGeometryWkt.h"
#include "tmgis/TLOgrGeometryReader.h"

namespace TMObjects {

namespace {

std::string isoDate(const OGRFeature& feature, int index, bool withTime) {
    int year = 0, month = 0, day = 0, hour = 0, minute = 0, zone = 0;
    float second = 0.0f;
    feature.GetFieldAsDateTime(index, &year, &month, &day, &hour, &minute, &second, &zone);
    char text[64];
    if (!withTime) {
        std::snprintf(text, sizeof text, "%04d-%02d-%02d", year, month, day);
        return text;
    }
    if (second == std::floor(second))
        std::snprintf(text, sizeof text, "%04d-%02d-%02dT%02d:%02d:%02d", year, month, day, hour,
                      minute, int(second));
    else
        std::snprintf(text, sizeof text, "%04d-%02d-%02dT%02d:%02d:%06.3f", year, month, day, hour,
                      minute, double(second));
    std::string iso = text;
    // OGR's zone flag: 100 is UTC, each step above or below it a quarter of an hour.
    if (zone == 100) {
        iso += "Z";
    } else if (zone > 1) {
        const int minutes = (zone - 100) * 15;
        std::snprintf(text, sizeof text, "%c%02d:%02d", minutes < 0 ? '-' : '+',
                      std::abs(minutes) / 60, std::abs(minutes) % 60);
        iso += text;
    }
    return iso;
}

int family(OGRwkbGeometryType t) {
    switch (wkbFlatten(t)) {
        case wkbPoint:
        case wkbMultiPoint:
            return 1;
        case wkbLineString:
        case wkbMultiLineString:
            return 2;
        case wkbPolygon:
        case wkbMultiPolygon:
            return 3;
        default:
            return 0;
    }
}

const char* familyName(OGRwkbGeometryType t) {
    switch (family(t)) {
        case 1:
            return "point";
        case 2:
            return "line";
        case 3:
            return "polygon";
        default:
            return OGRGeometryTypeToName(t);
    }
}

bool isSinglePart(OGRwkbGeometryType t) {
    const OGRwkbGeometryType flat = wkbFlatten(t);
    return flat == wkbPoint || flat == wkbLineString || flat == wkbPolygon;
}

// Why the layer cannot hold the geometry; empty when it can.
std::string refusal(const OGRGeometry& geometry, OGRwkbGeometryType layerType,
                    bool singleMeansSingle) {
    const OGRwkbGeometryType flat = wkbFlatten(layerType);
    const OGRwkbGeometryType kind = wkbFlatten(geometry.getGeometryType());
    // Layers of any geometry, and of curves, which the host only reads as their linear shape,
    // are left to the format.
    if (family(flat) == 0) return std::string();
    if (family(kind) != family(flat))
        return std::string("a ") + familyName(kind) + " cannot be stored in a layer of " +
               OGRGeometryTypeToName(flat) + " geometries";
    if (geometry.IsEmpty()) return std::string("an empty ") + familyName(kind) + " shows nothing";
    if (!singleMeansSingle || !isSinglePart(flat) || isSinglePart(kind)) return std::string();
    const int parts = geometry.toGeometryCollection()->getNumGeometries();
    if (parts <= 1) return std::string();
    return std::string("a ") + familyName(kind) + " of " + std::to_string(parts) +
           " parts cannot be stored in a layer of single " + OGRGeometryTypeToName(flat) +
           " geometries";
}

std::string wkbOf(const OGRGeometry* geometry) {
    const TLRefPtr<TLGeometry> host = TLOgrValues::ReadGeometry(geometry);
    return host ? TLGeometryWkt::ToWkb(host.get()) : std::string();
}

}  // namespace

TLVariant TLOgrValues::Read(const OGRFeature& feature, int index) {
    if (index < 0 || !feature.IsFieldSetAndNotNull(index)) return TLVariant();
    const OGRFieldDefn* definition = feature.GetFieldDefnRef(index);
    TLVariant value;
    switch (definition->GetType()) {
        case OFTInteger:
            value = feature.GetFieldAsInteger(index);
            return value;
        case OFTInteger64:
            value = static_cast<long long>(feature.GetFieldAsInteger64(index));
            return value;
        case OFTReal: {
            const double v = feature.GetFieldAsDouble(index);
            return TLVariant(definition->GetSubType() == OFSTFloat32 ? double(float(v)) : v);
        }
        case OFTDate:
            return TLVariant::FromDate(TLString(isoDate(feature, index, false)));
        case OFTDateTime:
            return TLVariant::FromDate(TLString(isoDate(feature, index, true)));
        default:
            return TLVariant(TLString(std::string(feature.GetFieldAsString(index))));
    }
}

bool TLOgrValues::Write(OGRFeature& feature, int index, const TLVariant& value,
                        std::string& error) {
    if (value.IsNull()) {
        feature.SetFieldNull(index);
        return true;
    }
    const OGRFieldDefn* definition = feature.GetFieldDefnRef(index);
    switch (definition->GetType()) {
        case OFTInteger:
            feature.SetField(index, int(value.GetInt64()));
            return true;
        case OFTInteger64:
            feature.SetField(index, static_cast<GIntBig>(value.GetInt64()));
            return true;
        case OFTReal:
            feature.SetField(index, value.GetDouble());
            return true;
        case OFTDate:
        case OFTDateTime: {
            const std::string text = value.ToString().toStdString();
            OGRField parsed;
            if (!OGRParseDate(text.c_str(), &parsed, 0)) {
                error = "\"" + text + "\" is no date for the field " + definition->GetNameRef();
                return false;
            }
            feature.SetField(index, &parsed);
            return true;
        }
        default:
            feature.SetField(index, value.ToString().toStdString().c_str());
            return true;
    }
}

TLRefPtr<TLGeometry> TLOgrValues::ReadGeometry(const OGRGeometry* geometry) {
    return TLOgrGeometryReader::Read(geometry);
}

std::unique_ptr<OGRGeometry> TLOgrValues::MakeGeometry(TLGeometry* geometry,
                                                       OGRwkbGeometryType layerType,
                                                       std::string& error, bool singleMeansSingle) {
    const std::string wkb = TLGeometryWkt::ToWkb(geometry);
    OGRGeometry* raw = nullptr;
    if (wkb.empty() || OGRGeometryFactory::createFromWkb(wkb.data(), nullptr, &raw, wkb.size(),
                                                         wkbVariantIso) != OGRERR_NONE) {
        error = "the geometry has no binary form the store can take";
        return nullptr;
    }
    std::unique_ptr<OGRGeometry> made(raw);
    error = refusal(*made, layerType, singleMeansSingle);
    if (!error.empty()) return nullptr;
    const OGRwkbGeometryType flat = wkbFlatten(layerType);
    if (flat == wkbUnknown || flat == wkbGeometryCollection) return made;
    // A multi-part shape that a Shapefile's single-part layer takes stays as it is: forcing it
    // would merge its parts into one.
    const bool severalParts = !isSinglePart(made->getGeometryType()) &&
                              made->toGeometryCollection()->getNumGeometries() > 1;
    if (flat != wkbFlatten(made->getGeometryType()) && !(isSinglePart(flat) && severalParts))
        made.reset(OGRGeometryFactory::forceTo(made.release(), flat));
    if (!made) {
        error = "the geometry cannot be made a geometry of the layer's type";
        return nullptr;
    }
    made->set3D(OGR_GT_HasZ(layerType));
    made->setMeasured(OGR_GT_HasM(layerType));
    return made;
}

TLFeature TLOgrValues::ReadFeature(const OGRFeature& feature, const TLFields& fields,
                                   bool& geometryLost) {
    TLFeature host;
    host.SetId(int(feature.GetFID()));
    for (int i = 0; i < fields.GetFieldCount(); ++i) {
        const TLField* field = fields.GetField(i);
        if (field->IsGeoField()) continue;
        if (field->GetFieldType() == TLField::FieldOID) {
            TLVariant id;
            id = static_cast<long long>(feature.GetFID());
            host.SetValue(field->GetName(), id);
            continue;
        }
        const int index = feature.GetFieldIndex(field->GetName().toStdString().c_str());
        host.SetValue(field->GetName(), Read(feature, index));
    }
    const OGRGeometry* geometry = feature.GetGeometryRef();
    TLRefPtr<TLGeometry> converted = ReadGeometry(geometry);
    geometryLost = geometry && !converted;
    host.SetGeometry(converted);
    return host;
}

bool TLOgrValues::Apply(const TLFeature& feature, OGRFeature& target, OGRwkbGeometryType layerType,
                        std::string& error, bool singleMeansSingle) {
    for (const auto& [name, value] : feature.Values()) {
        const int index = target.GetFieldIndex(name.toStdString().c_str());
        // The id and geometry columns, and names the layer does not have, are not fields here.
        if (index < 0) continue;
        // Equal values are left alone; so a null of a new feature leaves the field unset, and
        // the store's default applies.
        if (Read(target, index) == value) continue;
        if (!Write(target, index, value, error)) return false;
    }
    TLGeometry* geometry = feature.GetGeometry().get();
    if (!geometry) return true;
    if (target.GetGeometryRef() && wkbOf(target.GetGeometryRef()) == TLGeometryWkt::ToWkb(geometry))
        return true;
    std::unique_ptr<OGRGeometry> made = MakeGeometry(geometry, layerType, error, singleMeansSingle);
    if (!made) return false;
    target.SetGeometryDirectly(made.release());
    return true;
}

}  // namespace TMObjects
