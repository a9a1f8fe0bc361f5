#pragma once

#include <map>
#include <memory>
#include <string>

#include "tlbase/TLString.h"
#include "tlsymbol/TLStyleDB.h"

namespace TMObjects {

// The host's symbol libraries, one per file, shared by everything in the process. A library is
// made or opened with `AddNewStyleDB`, filled through its `TLStyleDB`, and written with
// `SaveStyleDB`. The file layout is TLStyleLibraryFile's.
class TLStyleSystem {
public:
    static TLStyleSystem* instance();

    // The library of the file at `path`. An existing file is read, so that what is added next
    // is appended to what it holds; a library of that path already at hand is read anew from
    // the file. A missing file gives an empty library, written on the first save. Null, with
    // the reason in GetLastError(), for a file that is no readable symbol library (another
    // kind of file, a damaged one, a newer version) or a folder that does not exist.
    TLStyleDB* AddNewStyleDB(const TLString& path);
    // Writes the library of `path`, all or nothing. False, with the reason in GetLastError(),
    // when no library of that path is at hand or the file cannot be written.
    bool SaveStyleDB(const TLString& path);
    // The library of `path` made or read before; null when there is none.
    TLStyleDB* GetStyleDB(const TLString& path) const;
    // Forgets the library of `path`; its file stays.
    void CloseStyleDB(const TLString& path);
    // Why the last call that failed failed.
    const TLString& GetLastError() const { return mLastError; }

private:
    TLStyleSystem() = default;
    // The key a path is known by: absolute and normal, so that two spellings of one file meet.
    static std::string key(const TLString& path);
    void fail(const TLString& reason);

    std::map<std::string, std::unique_ptr<TLStyleDB>> mLibraries;
    TLString mLastError;
};

}  // namespace TMObjects
