# Loads the demo GeoPackage into the database "tl_demo" of the test server, once for every session
# replayed on PostGIS: ogr2ogr keeps ids, field names and types, and sets each id sequence past
# the highest id. Called by ctest with TLRUN, WORKDIR, STATE (the server's connection file), PSQL
# and OGR2OGR.
file(STRINGS ${STATE} server LIMIT_COUNT 1)
if(NOT server MATCHES "^PG:")
  message(FATAL_ERROR "no PostGIS server: ${STATE} was not written (see postgis.start)")
endif()
string(REGEX REPLACE "^PG:" "" server "${server}")
string(REGEX REPLACE " *dbname=[^ ]+" "" server "${server}")
file(REMOVE_RECURSE ${WORKDIR})
file(MAKE_DIRECTORY ${WORKDIR})
execute_process(COMMAND ${TLRUN} make-demo ${WORKDIR}/demo.gpkg RESULT_VARIABLE made OUTPUT_QUIET)
if(NOT made EQUAL 0)
  message(FATAL_ERROR "the demo data could not be written")
endif()
execute_process(
  COMMAND ${PSQL} -X -q -v ON_ERROR_STOP=1 "${server} dbname=postgres"
    -c "DROP DATABASE IF EXISTS tl_demo" -c "CREATE DATABASE tl_demo TEMPLATE tl"
  RESULT_VARIABLE created ERROR_VARIABLE why)
if(NOT created EQUAL 0)
  message(FATAL_ERROR "cannot make the database tl_demo: ${why}")
endif()
execute_process(
  COMMAND ${OGR2OGR} -f PostgreSQL "PG:${server} dbname=tl_demo" ${WORKDIR}/demo.gpkg
    -preserve_fid -lco FID=fid -lco GEOMETRY_NAME=geom -lco LAUNDER=NO
  RESULT_VARIABLE loaded ERROR_VARIABLE why)
if(NOT loaded EQUAL 0)
  message(FATAL_ERROR "ogr2ogr could not load the demo data: ${why}")
endif()
