#pragma once

#include <vector>

#include "tlbase/TLString.h"

namespace TMObjects {

// One attribute field of a package layer. Types use the host's field codes: 0 short, 1 32-bit
// integer, 2 float, 3 double, 4 string, 5 date, 9 64-bit integer.
struct CRvField {
    TLString name;
    TLString alias;
    int type = 4;
    int length = 0;
    int visible = 1;
    int editable = 1;
    int decimals = 0;
};

// The field definitions of a package layer, in order.
class CRvFields {
public:
    // Appends a field and returns its index; a name already present (ignoring case) is refused
    // with -1, so that an entity's attribute by name stays unambiguous.
    int AddAttField(const TLString& name, const TLString& alias, int type, int length, int visible,
                    int editable, int decimals);
    int add(const CRvField& field);
    int getSize() const { return int(mFields.size()); }
    // Null for an index out of range.
    const CRvField* getAt(int index) const;
    CRvField* getAt(int index);
    // The index of the field of that name, ignoring case; -1 when there is none.
    int FindField(const TLString& name) const;
    void removeAll() { mFields.clear(); }

private:
    std::vector<CRvField> mFields;
};

}  // namespace TMObjects
