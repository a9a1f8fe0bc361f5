#pragma once

#include "tlbase/TLString.h"
#include "tlgeo/TLGeometry.h"

namespace TMObjects {

// Which features a search or a selection takes: a filter geometry with a spatial relation, and a
// where clause. Where clauses understand comparisons (=, <>, !=, <, <=, >, >=), IN (...), LIKE,
// IS [NOT] NULL, AND, OR, NOT and parentheses over field names and the id field, "FID" or
// "__OBJECTID__".
class TLQueryFilter {
public:
    TLQueryFilter() = default;
    TLQueryFilter(const TLQueryFilter&) = default;
    TLQueryFilter& operator=(const TLQueryFilter&) = default;

    bool IsSpatialFilter() const { return bool(mGeometry); }
    TLRefPtr<TLGeometry> GetFilterGeometry() const { return mGeometry; }
    void SetFilterGeometry(TLRefPtr<TLGeometry> geometry) { mGeometry = geometry; }
    TLSpatialRelEnum GetSpatialRel() const { return mRelation; }
    void SetSpatialRel(TLSpatialRelEnum relation) { mRelation = relation; }
    TLString GetWhereClause() const { return mWhere; }
    void SetWhereClause(TLString where) { mWhere = where; }
    void Reset() { *this = TLQueryFilter(); }

private:
    TLRefPtr<TLGeometry> mGeometry;
    TLSpatialRelEnum mRelation = TLSpatialRelIntersects;
    TLString mWhere;
};

}  // namespace TMObjects
