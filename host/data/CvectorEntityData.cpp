#include "data/CvectorEntityData.h"

namespace TMObjects {

void CvectorEntityData::entity_SetAttribValueByName(const TLString& name, const TLString& value) {
    mAttributes[name] = value;
}

bool CvectorEntityData::entity_GetAttribValueByName(const TLString& name, TLString& value) const {
    auto found = mAttributes.find(name);
    value = found == mAttributes.end() ? TLString() : found->second;
    return found != mAttributes.end();
}

TLString CvectorEntityData::entity_GetAttribValueByName(const TLString& name) const {
    TLString value;
    entity_GetAttribValueByName(name, value);
    return value;
}

void CvectorEntityData::entity_CopyHandle(const CvectorEntityData* other) {
    if (!other || other == this) return;
    mHandle = other->mHandle;
    mAttributes = other->mAttributes;
}

}  // namespace TMObjects
