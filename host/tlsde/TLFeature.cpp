#include "tlsde/TLFeature.h"

#include <vector>

#include "tlgeo/TLGeoPoint.h"
#include "tlgeo/TLGeoPolygon.h"
#include "tlgeo/TLGeoPolyline.h"

namespace TMObjects {

namespace {

TLRefPtr<TLGeometry> cloneOf(const TLRefPtr<TLGeometry>& geometry) {
    return geometry ? geometry->Clone() : TLRefPtr<TLGeometry>();
}

const TLPartList* partsOf(TLGeometry* geometry) {
    if (auto* line = dynamic_cast<TLGeoPolyline*>(geometry)) return &line->Parts();
    if (auto* polygon = dynamic_cast<TLGeoPolygon*>(geometry)) return &polygon->Parts();
    return nullptr;
}

std::vector<double> rawCoordinates(TLGeometry* geometry) {
    double* xy = nullptr;
    int count = 0;
    if (!geometry->GetRawPoints(&xy, count) || !xy || count <= 0) return {};
    return std::vector<double>(xy, xy + 2 * count);
}

bool sameGeometry(TLGeometry* a, TLGeometry* b) {
    if (!a || !b) return a == b;
    if (a == b) return true;
    if (a->GetType() != b->GetType() || a->IsEmpty() != b->IsEmpty()) return false;
    if (rawCoordinates(a) != rawCoordinates(b)) return false;
    const TLPartList* pa = partsOf(a);
    const TLPartList* pb = partsOf(b);
    if (pa && pb) {
        if (pa->PartCount() != pb->PartCount() || pa->Z() != pb->Z()) return false;
        for (int i = 0; i < pa->PartCount(); ++i)
            if (pa->PartStart(i) != pb->PartStart(i)) return false;
    }
    auto* qa = dynamic_cast<TLGeoPoint*>(a);
    auto* qb = dynamic_cast<TLGeoPoint*>(b);
    if (qa && qb && qa->GetZ() != qb->GetZ()) return false;
    return true;
}

// Every value of `a` that is not null is in `b` and equal there.
bool valuesWithin(const std::map<TLString, TLVariant>& a, const std::map<TLString, TLVariant>& b) {
    for (const auto& [name, value] : a) {
        if (value.IsNull()) continue;
        auto it = b.find(name);
        if (it == b.end() || !(it->second == value)) return false;
    }
    return true;
}

}  // namespace

TLFeature::TLFeature(const TLFeature& other)
    : TLRefBase(),
      mId(other.mId),
      mGeometry(cloneOf(other.mGeometry)),
      mFields(other.mFields),
      mValues(other.mValues) {}

TLFeature& TLFeature::operator=(const TLFeature& other) {
    if (this == &other) return *this;
    mId = other.mId;
    mGeometry = cloneOf(other.mGeometry);
    mFields = other.mFields;
    mValues = other.mValues;
    return *this;
}

TLFeature::TLFeature(TLFeature&& other) noexcept
    : TLRefBase(),
      mId(other.mId),
      mGeometry(std::move(other.mGeometry)),
      mFields(std::move(other.mFields)),
      mValues(std::move(other.mValues)) {}

TLFeature& TLFeature::operator=(TLFeature&& other) noexcept {
    if (this == &other) return *this;
    mId = other.mId;
    mGeometry = std::move(other.mGeometry);
    mFields = std::move(other.mFields);
    mValues = std::move(other.mValues);
    return *this;
}

bool TLFeature::SetValue(const TLString& field, const TLVariant& value) {
    if (mFields) {
        const int index = mFields->FindField(field);
        return index >= 0 && SetValue(index, value);
    }
    // Without fields the name is the key; a name differing only in case is the same field, as it
    // is in every store the host writes to.
    for (auto& entry : mValues) {
        if (entry.first.CompareNoCase(field) == 0) {
            entry.second = value;
            return true;
        }
    }
    mValues[field] = value;
    return true;
}

bool TLFeature::SetValue(int index, const TLVariant& value) {
    if (!mFields || index < 0 || index >= mFields->GetFieldCount()) return false;
    const TLField* f = mFields->GetField(index);
    // The store keeps ids and geometries itself; a value for them would be a second truth.
    if (f->IsSystemField() || f->IsGeoField()) return false;
    mValues[f->GetName()] = f->Coerce(value);
    return true;
}

TLVariant TLFeature::GetValue(const TLString& field) const {
    if (mFields) {
        const int index = mFields->FindField(field);
        return index >= 0 ? GetValue(index) : TLVariant();
    }
    auto exact = mValues.find(field);
    if (exact != mValues.end()) return exact->second;
    for (const auto& entry : mValues)
        if (entry.first.CompareNoCase(field) == 0) return entry.second;
    return TLVariant();
}

TLVariant TLFeature::GetValue(int index) const {
    if (!mFields || index < 0 || index >= mFields->GetFieldCount()) return TLVariant();
    const TLField* f = mFields->GetField(index);
    if (f->GetFieldType() == TLField::FieldOID) return TLVariant::FromInt(mId);
    auto it = mValues.find(f->GetName());
    return it == mValues.end() ? TLVariant() : it->second;
}

bool TLFeature::SameContent(const TLFeature& other) const {
    // A value cleared to null reads as one never set, and a store keeps both as null.
    return mId == other.mId && valuesWithin(mValues, other.mValues) &&
           valuesWithin(other.mValues, mValues) &&
           sameGeometry(mGeometry.get(), other.mGeometry.get());
}

}  // namespace TMObjects
