#include "data/CHelper.h"
#include "data/CRvFields.h"
#include "tlsde/TLField.h"

namespace TMObjects {

namespace {

// The length a field of each kind gets when its definition gives none.
int standardLength(int type) {
    switch (type) {
        case TLField::FieldShort:
            return 6;
        case TLField::FieldInt:
            return 11;
        case TLField::FieldFloat:
            return 13;
        case TLField::FieldDouble:
            return 24;
        case TLField::FieldDate:
            return 10;
        case TLField::FieldInt64:
            return 20;
        default:
            return 254;
    }
}

}  // namespace

// Every field but the geometry, in order; the id field is kept as a field that may not be edited.
bool CHelper::TmFieldsPtrToFields(const TLFields* fields, CRvFields& out) {
    if (!fields) return false;
    for (int i = 0; i < fields->GetFieldCount(); ++i) {
        const TLField* field = fields->GetField(i);
        if (!field || field->IsGeoField()) continue;
        out.AddAttField(field->GetName(), field->GetAliasName(), int(field->GetFieldType()),
                        field->GetFieldLength(), 1, field->GetEditable() ? 1 : 0,
                        field->GetPrecision());
    }
    return true;
}

bool CHelper::StandFieldsLength(CRvFields& fields) {
    for (int i = 0; i < fields.getSize(); ++i) {
        CRvField* field = fields.getAt(i);
        if (field->length <= 0) field->length = standardLength(field->type);
    }
    return true;
}

// The fields a user may edit, appended to `to` (a name already there is kept as it was).
bool CHelper::GetEditFieldDef(const CRvFields& from, CRvFields& to) {
    for (int i = 0; i < from.getSize(); ++i) {
        const CRvField* field = from.getAt(i);
        if (field->editable) to.add(*field);
    }
    return true;
}

}  // namespace TMObjects
