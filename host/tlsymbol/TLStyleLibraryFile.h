#pragma once

#include <vector>

#include "tlbase/TLString.h"
#include "tlsymbol/TLStyle.h"

namespace TMObjects {

// The symbol library file, ".style": an SQLite 3 database, so that it is written in one piece,
// can be looked into with `sqlite3`, and tells a newer layout from damage.
//
//   PRAGMA application_id = 1414288212   the bytes "TLST": this host's symbol library
//   PRAGMA user_version   = 1            the layout's version, raised on every change of it
//   CREATE TABLE library (key TEXT PRIMARY KEY, value TEXT NOT NULL)
//       "format" = the version again, "writer" = the program that wrote the file
//   CREATE TABLE styles (id INTEGER PRIMARY KEY, name TEXT NOT NULL UNIQUE,
//       family INTEGER NOT NULL, type_id INTEGER NOT NULL, kind TEXT NOT NULL, body BLOB NOT NULL)
//       one row a style, in the library's order (by id); family is the class type (0 point,
//       1 line, 2 fill), type_id and kind the kind by number and by name ("SimpleLine"); body is
//       the style as TLStyleFactory::Save writes it, nested styles included (see TLFileFunc for
//       the layout of its values). The other columns repeat the body for queries; the body is
//       what is read.
//
// A file is written whole under a temporary name beside the target and then renamed over it, so
// that a reader sees the old library or the new one, never a part. A reader refuses, with a
// message naming the file, anything that is not such a database, a newer version, and a file
// with a row whose body does not read back.
class TLStyleLibraryFile {
public:
    static constexpr int ApplicationId = 0x544C5354;
    static constexpr int FormatVersion = 1;

    // Every style of the file at `path`, in order. False with the reason in `error`.
    static bool Read(const TLString& path, std::vector<TLRefPtr<TLStyle>>& styles, TLString& error);
    // Writes `styles` (each named, names unique) as the file at `path`. False with the reason
    // in `error`; the file at `path` is then as it was.
    static bool Write(const TLString& path, const std::vector<TLRefPtr<TLStyle>>& styles,
                      TLString& error);
};

}  // namespace TMObjects
