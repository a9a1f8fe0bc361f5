#include "tmgis/TLOgrSchema.h"

#include <ogrsf_frmts.h>

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

TLFields TLOgrSchema::Fields(OGRLayer& layer) {
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
        fields.AddField(TLString(field->GetNameRef()), type, field->GetWidth(),
                        field->GetPrecision());
    }
    return fields;
}

}  // namespace TMObjects
