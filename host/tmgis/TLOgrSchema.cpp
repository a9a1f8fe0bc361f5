#include "tmgis/TLOgrSchema.h"

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <cstdlib>
#include <string>

namespace TMObjects {

bool TLOgrSchema::FieldType(const OGRFieldDefn& field, TLField::FieldType& type) {
    switch (field.GetType()) {
        case OFTInteger:
            type = field.GetSubType() == OFSTInt16 ? TLField::FieldShort : TLField::FieldInt;
            return true;
        case OFTInteger64:
            type = TLField::FieldInt64;
            return true;
        case OFTReal:
            type = field.GetSubType() == OFSTFloat32 ? TLField::FieldFloat : TLField::FieldDouble;
            return true;
        case OFTString:
            type = TLField::FieldString;
            return true;
        case OFTDate:
        case OFTDateTime:
            type = TLField::FieldDate;
            return true;
        default:
            return false;
    }
}

bool TLOgrSchema::OgrFieldType(TLField::FieldType type, OGRFieldType& ogrType,
                               OGRFieldSubType& subType) {
    subType = OFSTNone;
    switch (type) {
        case TLField::FieldShort:
            ogrType = OFTInteger;
            subType = OFSTInt16;
            return true;
        case TLField::FieldInt:
            ogrType = OFTInteger;
            return true;
        case TLField::FieldInt64:
            ogrType = OFTInteger64;
            return true;
        case TLField::FieldFloat:
            ogrType = OFTReal;
            subType = OFSTFloat32;
            return true;
        case TLField::FieldDouble:
            ogrType = OFTReal;
            return true;
        case TLField::FieldString:
            ogrType = OFTString;
            return true;
        case TLField::FieldDate:
            ogrType = OFTDate;
            return true;
        default:
            return false;
    }
}

TLLayer::LayerType TLOgrSchema::LayerKind(OGRwkbGeometryType type) {
    switch (wkbFlatten(type)) {
        case wkbPoint:
        case wkbMultiPoint:
            return TLLayer::PointLayer;
        case wkbLineString:
        case wkbMultiLineString:
        case wkbCircularString:
        case wkbCompoundCurve:
        case wkbMultiCurve:
            return TLLayer::LineLayer;
        case wkbPolygon:
        case wkbMultiPolygon:
        case wkbCurvePolygon:
        case wkbMultiSurface:
            return TLLayer::PolygonLayer;
        default:
            return TLLayer::UnknownLayer;
    }
}

namespace {

// The coded value domain of the field in the dataset; empty for none. Range and glob domains name
// no values to pick and are left to the store.
TLRefPtr<TLDoMain> domainOf(const OGRFieldDefn& field, GDALDataset* dataset) {
    const OGRFieldDomain* domain = dataset && !field.GetDomainName().empty()
                                       ? dataset->GetFieldDomain(field.GetDomainName())
                                       : nullptr;
    auto* coded = dynamic_cast<const OGRCodedFieldDomain*>(domain);
    if (!coded) return TLRefPtr<TLDoMain>();
    TLRefPtr<TLDoMain> made(new TLDoMain);
    const bool whole = field.GetType() == OFTInteger || field.GetType() == OFTInteger64;
    for (const OGRCodedValue* v = coded->GetEnumeration(); v && v->pszCode; ++v) {
        TLVariant code = TLVariant(TLString(v->pszCode));
        if (whole) code = TLVariant::FromInt(std::strtoll(v->pszCode, nullptr, 10));
        made->Add(code, TLString(v->pszValue ? v->pszValue : v->pszCode));
    }
    return made;
}

}  // namespace

TLFields TLOgrSchema::Fields(OGRLayer& layer, GDALDataset* dataset) {
    TLFields fields;
    const std::string fid = layer.GetFIDColumn();
    if (!fid.empty()) fields.AddField(TLString(fid), TLField::FieldOID);
    const std::string geometry = layer.GetGeometryColumn();
    if (!geometry.empty()) fields.AddField(TLString(geometry), TLField::FieldGeometry);
    OGRFeatureDefn* definition = layer.GetLayerDefn();
    for (int i = 0; i < definition->GetFieldCount(); ++i) {
        const OGRFieldDefn* field = definition->GetFieldDefn(i);
        TLField::FieldType type;
        if (!FieldType(*field, type)) continue;
        TLRefPtr<TLField> made(new TLField(TLString(field->GetNameRef()), type, field->GetWidth(),
                                           field->GetPrecision()));
        if (field->GetAlternativeNameRef() && *field->GetAlternativeNameRef())
            made->SetAliasName(TLString(field->GetAlternativeNameRef()));
        made->SetDoMain(domainOf(*field, dataset));
        fields.AddField(made);
    }
    return fields;
}

}  // namespace TMObjects
