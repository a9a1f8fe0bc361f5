#include "PgFixture.h"

#include <unistd.h>

#include <fstream>
#include <regex>

#include "tlgeo/TLGeometryWkt.h"
#include "tlsde/TLSharedFeatureStore.h"

namespace TMObjects {

namespace {

PGconn* connect(const std::string& parameters, std::string& why) {
    PGconn* conn = PQconnectdb(parameters.c_str());
    if (PQstatus(conn) == CONNECTION_OK) return conn;
    why = PQerrorMessage(conn);
    PQfinish(conn);
    return nullptr;
}

bool run(PGconn* conn, const std::string& statements, std::string& why) {
    PGresult* result = PQexec(conn, statements.c_str());
    const ExecStatusType status = PQresultStatus(result);
    const bool ok = status == PGRES_COMMAND_OK || status == PGRES_TUPLES_OK;
    if (!ok) why = PQresultErrorMessage(result);
    PQclear(result);
    return ok;
}

}  // namespace

void PgFixture::SetUp() {
    std::ifstream state(TL_PG_STATE);
    std::string line;
    std::getline(state, line);
    ASSERT_EQ(line.rfind("PG:", 0), 0u)
        << "no PostGIS server: " << TL_PG_STATE
        << " was not written, so the fixture test postgis.start failed (see its output)";
    mServer = std::regex_replace(line.substr(3), std::regex("\\s*dbname=\\S+"), "");
    static int made = 0;
    const testing::TestInfo* info = testing::UnitTest::GetInstance()->current_test_info();
    mDatabase = "t" + std::to_string(getpid()) + "_" + std::to_string(++made) + "_" +
                std::string(info->name()).substr(0, 30);
    for (char& c : mDatabase) c = char(std::tolower(static_cast<unsigned char>(c)));
    std::string why;
    PGconn* admin = connect(mServer + " dbname=postgres", why);
    ASSERT_NE(admin, nullptr) << why;
    const bool created = run(admin, "CREATE DATABASE \"" + mDatabase + "\" TEMPLATE tl", why);
    PQfinish(admin);
    ASSERT_TRUE(created) << why;
    mConn = connect(mServer + " dbname=" + mDatabase, why);
    ASSERT_NE(mConn, nullptr) << why;
    mConnection = "PG:" + mServer + " dbname=" + mDatabase;
}

void PgFixture::TearDown() {
    if (mConn) PQfinish(mConn);
    mConn = nullptr;
    if (mDatabase.empty() || mServer.empty()) return;
    std::string why;
    if (PGconn* admin = connect(mServer + " dbname=postgres", why)) {
        run(admin, "DROP DATABASE IF EXISTS \"" + mDatabase + "\" WITH (FORCE)", why);
        PQfinish(admin);
    }
}

void PgFixture::sql(const std::string& statements) {
    ASSERT_NE(mConn, nullptr);
    std::string why;
    ASSERT_TRUE(run(mConn, statements, why)) << statements << ": " << why;
}

void PgFixture::serverSql(const std::string& statements) {
    std::string why;
    PGconn* admin = connect(mServer + " dbname=postgres", why);
    ASSERT_NE(admin, nullptr) << why;
    const bool ran = run(admin, statements, why);
    PQfinish(admin);
    ASSERT_TRUE(ran) << statements << ": " << why;
}

std::string PgFixture::value(const std::string& query) {
    PGresult* result = PQexec(mConn, query.c_str());
    std::string text;
    if (PQresultStatus(result) != PGRES_TUPLES_OK)
        ADD_FAILURE() << query << ": " << PQresultErrorMessage(result);
    else if (PQntuples(result) > 0 && !PQgetisnull(result, 0, 0))
        text = PQgetvalue(result, 0, 0);
    PQclear(result);
    return text;
}

std::string PgFixture::checksum(const std::string& table) {
    return value("SELECT md5(string_agg(t::text, '|' ORDER BY fid)) FROM " + table + " t");
}

void PgFixture::makeRoads(int count) {
    sql("CREATE TABLE roads (fid serial PRIMARY KEY, name text, lanes integer, opened date, "
        "geom geometry(LineString, 32633));"
        "CREATE INDEX roads_geom ON roads USING gist (geom);"
        "INSERT INTO roads (name, lanes, opened, geom) SELECT 'road ' || i, 1 + i % 3, "
        "DATE '2020-01-01' + i, ST_SetSRID(ST_MakeLine(ST_MakePoint(500000 + 10 * i, 5000000), "
        "ST_MakePoint(500005 + 10 * i, 5000000)), 32633) FROM generate_series(1, " +
        std::to_string(count) + ") AS i;ANALYZE roads;");
}

std::unique_ptr<TMWorkspace> PgFixture::open(bool editable) {
    TLString why;
    std::unique_ptr<TMWorkspace> workspace =
        TMWorkspace::Open(TLString(mConnection), editable, why);
    EXPECT_TRUE(workspace) << why.toStdString();
    return workspace;
}

TLFeatureTable& PgFixture::roadsOf(TMWorkspace& workspace) {
    auto* layer = dynamic_cast<TLFeatureLayer*>(workspace.GetLayer(TLString("roads")).get());
    if (!layer) throw std::runtime_error("no layer roads");
    return *layer->GetDatasource();
}

TLRefPtr<TLGeometry> PgFixture::geometry(const char* wkt) {
    return TLGeometryWkt::FromWkt(wkt);
}

std::string PgFixture::wktOf(const TLFeature* feature) {
    if (!feature || !feature->GetGeometry()) return "(none)";
    return TLGeometryWkt::ToWkt(feature->GetGeometry().get());
}

std::string PgFixture::text(const TLFeature* feature, const char* field) {
    if (!feature) return "(none)";
    return feature->GetValue(TLString(field)).ToString().toStdString();
}

std::vector<int> PgFixture::conflicts(const TLFeatureTable& table) {
    return TLSharedFeatureStore::Of(table)->Conflicts();
}

bool PgFixture::reloadConflicts(TLFeatureTable& table, TLString& why) {
    TLSharedFeatureStore* store = TLSharedFeatureStore::Of(table);
    return store->Reload(table, store->Conflicts(), why);
}

bool PgFixture::refresh(TLFeatureTable& table, TLString& why) {
    return TLSharedFeatureStore::Of(table)->Refresh(table, why);
}

}  // namespace TMObjects
