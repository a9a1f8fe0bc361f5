#pragma once

#include <vector>

#include "tlbase/TLRefBase.h"
#include "tlbase/TLString.h"
#include "tlbase/TLVariant.h"

namespace TMObjects {

// A coded value domain: codes and their names.
class TLDoMain : public TLRefBase {
public:
    int GetCount() const { return int(mCodes.size()); }
    TLVariant GetCode(int i) const { return mCodes[std::size_t(i)]; }
    TLString GetName(int i) const { return mNames[std::size_t(i)]; }
    void Add(const TLVariant& code, const TLString& name) {
        mCodes.push_back(code);
        mNames.push_back(name);
    }

private:
    std::vector<TLVariant> mCodes;
    std::vector<TLString> mNames;
};

// One attribute field of a table.
class TLField : public TLRefBase {
public:
    enum FieldType {
        FieldShort = 0,
        FieldInt = 1,
        FieldFloat = 2,
        FieldDouble = 3,
        FieldString = 4,
        FieldDate = 5,
        FieldGeometry = 7,
        FieldOID = 8,
        FieldInt64 = 9,
    };

    TLField(const TLString& name, FieldType type, int length = 0, int precision = 0);

    TLString GetName() const { return mName; }
    TLString GetAliasName() const { return mAlias.isEmpty() ? mName : mAlias; }
    void SetAliasName(const TLString& alias) { mAlias = alias; }
    FieldType GetFieldType() const { return mType; }
    int GetFieldLength() const { return mLength; }
    int GetPrecision() const { return mPrecision; }
    bool GetEditable() const { return mEditable && !IsSystemField() && !IsGeoField(); }
    void SetEditable(bool editable) { mEditable = editable; }
    // The id field and other fields the store maintains itself.
    bool IsSystemField() const { return mType == FieldOID || mSystem; }
    void SetSystemField(bool system) { mSystem = system; }
    bool IsGeoField() const { return mType == FieldGeometry; }
    TLDoMain* GetDoMain() const { return mDomain.get(); }
    void SetDoMain(TLRefPtr<TLDoMain> domain) { mDomain = domain; }

    // Converts a value to this field's type; a null value stays null.
    TLVariant Coerce(const TLVariant& value) const;

private:
    TLString mName;
    TLString mAlias;
    FieldType mType;
    int mLength;
    int mPrecision;
    bool mEditable = true;
    bool mSystem = false;
    TLRefPtr<TLDoMain> mDomain;
};

class TLFields {
public:
    int GetFieldCount() const { return int(mFields.size()); }
    TLField* GetField(int index) const { return mFields[std::size_t(index)].get(); }
    // The index of the field of that name, ignoring case; -1 when there is none.
    int FindField(const TLString& name) const;
    void AddField(TLRefPtr<TLField> field) { mFields.push_back(field); }
    void AddField(const TLString& name, TLField::FieldType type, int length = 0, int precision = 0);

private:
    std::vector<TLRefPtr<TLField>> mFields;
};

}  // namespace TMObjects
