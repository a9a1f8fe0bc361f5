#pragma once

#include <map>

#include "data/CTmArray.h"
#include "data/CvectorEntityBase.h"
#include "tlbase/TLString.h"

namespace TMObjects {

// An entity of a package: its geometry (CvectorEntityBase), the layer it is linked to, its
// attribute strings by field name, and the flags and handle the data operations keep on it.
class CvectorEntityData : public CvectorEntityBase {
public:
    CvectorEntityData() = default;
    CvectorEntityData(const CvectorEntityData&) = default;
    CvectorEntityData& operator=(const CvectorEntityData&) = default;

    // The id of the package layer the entity belongs to; -1 when it is linked to none.
    int GetLayerID() const { return mLayerId; }
    void SetLayerID(int layerId) { mLayerId = layerId; }

    // Attribute strings by field name; names compare exactly. Reading an unknown name gives an
    // empty string and false.
    void entity_SetAttribValueByName(const TLString& name, const TLString& value);
    bool entity_GetAttribValueByName(const TLString& name, TLString& value) const;
    TLString entity_GetAttribValueByName(const TLString& name) const;
    bool entity_HasAttrib(const TLString& name) const { return mAttributes.count(name) != 0; }
    const std::map<TLString, TLString>& entity_GetAttribs() const { return mAttributes; }
    void entity_RemoveAllAttribs() { mAttributes.clear(); }

    // Flags the operations leave on an entity: selected for an operation, marked by a tool, and
    // bound (to be merged with its neighbours by package_BindingEntity).
    void entity_SetSelectFlag(int flag) { mSelectFlag = flag; }
    int entity_GetSelectFlag() const { return mSelectFlag; }
    void entity_SetMark(int mark) { mMark = mark; }
    int entity_GetMark() const { return mMark; }
    void entity_SetBindingFlag(int flag) { mBindingFlag = flag; }
    int entity_GetBindingFlag() const { return mBindingFlag; }

    // The handle says which record an entity stands for; copying it from another entity makes
    // this one stand for the same record (its handle and attributes, not its geometry).
    void entity_SetHandle(int handle) { mHandle = handle; }
    int entity_GetHandle() const { return mHandle; }
    void entity_CopyHandle(const CvectorEntityData* other);

    // The 1-based indexes of the entities of an operation's input that a result entity came
    // from; empty for entities that no operation made.
    CTmArray<int>& GetSourceIds() { return mSourceIds; }
    const CTmArray<int>& GetSourceIds() const { return mSourceIds; }

private:
    int mLayerId = -1;
    std::map<TLString, TLString> mAttributes;
    int mSelectFlag = 0;
    int mMark = 0;
    int mBindingFlag = 0;
    int mHandle = -1;
    CTmArray<int> mSourceIds;
};

}  // namespace TMObjects
