#pragma once

#include <vector>

#include "tlbase/TLString.h"
#include "tlsymbol/TLStyle.h"

namespace TMObjects {

// One symbol library in memory: named styles, in the order they were added, tied to the file
// they are saved to by `TLStyleSystem::SaveStyleDB`. Names are unique in a library: a style added
// under a name the library holds takes that name's place, so that exporting a map again brings
// its styles up to date instead of doubling them.
class TLStyleDB {
public:
    explicit TLStyleDB(const TLString& path) : mPath(path) {}

    const TLString& GetPath() const { return mPath; }
    // Keeps `style` (shared, not copied: later changes to it are saved too). False for a null
    // style, a style without a name, and a kind the library cannot write.
    bool AddStyleTakeOwnership(TLRefPtr<TLStyle> style);
    int GetStyleCount() const { return int(mStyles.size()); }
    // Null outside 0 .. GetStyleCount() - 1.
    TLRefPtr<TLStyle> GetStyle(int index) const;
    // The style of that name; null when there is none.
    TLRefPtr<TLStyle> FindStyle(const TLString& name) const;
    // Forgets every style (the file is untouched until the next save).
    void Clear() { mStyles.clear(); }

private:
    TLString mPath;
    std::vector<TLRefPtr<TLStyle>> mStyles;
};

}  // namespace TMObjects
