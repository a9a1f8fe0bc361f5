#pragma once

#include <gtest/gtest.h>
#include <libpq-fe.h>

#include <memory>
#include <string>

#include "tlsde/TLFeatureTable.h"
#include "tmgis/TMWorkspace.h"

namespace TMObjects {

// A database of its own on the throw-away server that the ctest fixture "postgis" started
// (scripts/postgis), made from the template that has PostGIS, and dropped afterwards. Without
// that server every test fails and says why: none is skipped.
class PgFixture : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // "PG:host=... dbname=... user=tl"
    const std::string& connection() const { return mConnection; }
    const std::string& database() const { return mDatabase; }
    // Runs statements on a connection of the test's own; a failure fails the test.
    void sql(const std::string& statements);
    // Runs statements on the server's own database "postgres", outside the test's database.
    void serverSql(const std::string& statements);
    // The first value of the first row, as text; empty for none or null.
    std::string value(const std::string& query);
    // A checksum of every row of the table, in id order.
    std::string checksum(const std::string& table);

    // "roads": lines in EPSG:32633, ids 1..count from a sequence, "name" (text), "lanes"
    // (integer), "opened" (date); road i runs from (500000 + 10 i, 5000000) 5 m east.
    void makeRoads(int count);
    std::unique_ptr<TMWorkspace> open(bool editable = true);
    static TLFeatureTable& roadsOf(TMWorkspace& workspace);
    static TLRefPtr<TLGeometry> geometry(const char* wkt);
    static std::string wktOf(const TLFeature* feature);
    static std::string text(const TLFeature* feature, const char* field);
    // What the user does after a refused save, and to see what others saved.
    static std::vector<int> conflicts(const TLFeatureTable& table);
    static bool reloadConflicts(TLFeatureTable& table, TLString& why);
    static bool refresh(TLFeatureTable& table, TLString& why);

private:
    std::string mServer;  // the libpq parameters of the server, without dbname
    std::string mDatabase;
    std::string mConnection;
    PGconn* mConn = nullptr;
};

}  // namespace TMObjects
