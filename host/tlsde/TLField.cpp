#include "tlsde/TLField.h"

namespace TMObjects {

// A string field declared without a width (a GeoPackage TEXT) holds text of any length, and says so
// with the largest length there is.
TLField::TLField(const TLString& name, FieldType type, int length, int precision)
    : mName(name),
      mType(type),
      mLength(type == FieldString && length <= 0 ? 2147483647 : length),
      mPrecision(precision) {}

TLVariant TLField::Coerce(const TLVariant& value) const {
    if (value.IsNull()) return value;
    switch (mType) {
        case FieldShort:
        case FieldInt:
        case FieldOID: {
            TLVariant v;
            v = int(value.GetInt64());
            return v;
        }
        case FieldInt64: {
            TLVariant v;
            v = static_cast<long long>(value.GetInt64());
            return v;
        }
        case FieldFloat:
            return TLVariant(double(value.GetFloat()));
        case FieldDouble:
            return TLVariant(value.GetDouble());
        case FieldString:
            return TLVariant(value.ToString());
        case FieldDate:
            return TLVariant::FromDate(value.ToString());
        default:
            return value;
    }
}

int TLFields::FindField(const TLString& name) const {
    for (int i = 0; i < GetFieldCount(); ++i)
        if (mFields[std::size_t(i)]->GetName().CompareNoCase(name) == 0) return i;
    return -1;
}

void TLFields::AddField(const TLString& name, TLField::FieldType type, int length, int precision) {
    mFields.emplace_back(new TLField(name, type, length, precision));
}

}  // namespace TMObjects
