#pragma once

#include <map>
#include <string>

#include "tlbase/TLString.h"

namespace TMObjects {

// How the host names a PostgreSQL/PostGIS database to GDAL's PostgreSQL driver, and the few bits
// of SQL text the database store writes.
class TLPgConnection {
public:
    // "PG:host=... port=... dbname=... user=... password=..." from a workspace's connection
    // properties: "SERVER" the host name, address or Unix socket folder, "INSTANCE" the port,
    // "DATABASE", "USER", "PASSWORD". A key left out or empty leaves libpq its default.
    static TLString FromProperties(const std::map<TLString, TLString>& properties);
    // True for a data source name the PostgreSQL driver takes ("PG:...", in any case).
    static bool Names(const TLString& source);
    // The connection with its password (in key=value or URI form) masked: for messages, which
    // must never show it.
    static std::string Redacted(const std::string& connection);
    // The connection that opens only `table` ("schema.table" or "table"), so that opening it
    // does not list every table of the database.
    static std::string ForTable(const std::string& connection, const std::string& table);

    // SQL quoting: a "quoted identifier", a 'literal'.
    static std::string Identifier(const std::string& name);
    static std::string Literal(const std::string& text);
};

}  // namespace TMObjects
