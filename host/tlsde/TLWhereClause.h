#pragma once

#include <memory>

#include "tlbase/TLString.h"
#include "tlsde/TLFeature.h"

namespace TMObjects {

// A where clause parsed once and evaluated against features. The language is the one described
// at TLQueryFilter, plus NOT IN, NOT LIKE and BETWEEN; comparisons with a null value are unknown,
// as in SQL, and only a clause that comes out true matches. Text that does not parse matches
// nothing, so that a typing error in a filter never selects a whole layer.
class TLWhereClause {
public:
    explicit TLWhereClause(const TLString& text);
    ~TLWhereClause();
    TLWhereClause(const TLWhereClause&) = delete;
    TLWhereClause& operator=(const TLWhereClause&) = delete;

    // No clause at all: every feature matches.
    bool IsEmpty() const { return mEmpty; }
    bool IsValid() const { return mEmpty || mRoot != nullptr; }
    // Why the text did not parse; empty when it did.
    const TLString& Error() const { return mError; }
    bool Matches(const TLFeature& feature) const;

    struct Node;

private:
    std::unique_ptr<Node> mRoot;
    bool mEmpty = false;
    TLString mError;
};

}  // namespace TMObjects
