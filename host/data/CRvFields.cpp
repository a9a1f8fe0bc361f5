#include "data/CRvFields.h"

namespace TMObjects {

int CRvFields::AddAttField(const TLString& name, const TLString& alias, int type, int length,
                           int visible, int editable, int decimals) {
    CRvField field;
    field.name = name;
    field.alias = alias;
    field.type = type;
    field.length = length;
    field.visible = visible;
    field.editable = editable;
    field.decimals = decimals;
    return add(field);
}

int CRvFields::add(const CRvField& field) {
    if (field.name.isEmpty() || FindField(field.name) >= 0) return -1;
    mFields.push_back(field);
    return getSize() - 1;
}

const CRvField* CRvFields::getAt(int index) const {
    if (index < 0 || index >= getSize()) return nullptr;
    return &mFields[std::size_t(index)];
}

CRvField* CRvFields::getAt(int index) {
    if (index < 0 || index >= getSize()) return nullptr;
    return &mFields[std::size_t(index)];
}

int CRvFields::FindField(const TLString& name) const {
    for (int i = 0; i < getSize(); ++i)
        if (mFields[std::size_t(i)].name.CompareNoCase(name) == 0) return i;
    return -1;
}

}  // namespace TMObjects
