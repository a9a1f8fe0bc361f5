# Plays a session script written for the demo GeoPackage on the same data in PostGIS: the demo
# GeoPackage is written, loaded into a fresh database of the test server with ogr2ogr (ids,
# field names and types kept), and the script plays with every "open demo.gpkg" opening that
# database instead. Its own expectations must hold unchanged; RunScenario.cmake checks them.
# Called by ctest with TLRUN, SCRIPT, WORKDIR, STATE (the server's connection file), PSQL and
# OGR2OGR.
file(STRINGS ${STATE} server LIMIT_COUNT 1)
if(NOT server MATCHES "^PG:")
  message(FATAL_ERROR "no PostGIS server: ${STATE} was not written (see postgis.start)")
endif()
string(REGEX REPLACE "^PG:" "" server "${server}")
string(REGEX REPLACE " *dbname=[^ ]+" "" server "${server}")
get_filename_component(name ${SCRIPT} NAME_WE)
get_filename_component(folder ${SCRIPT} DIRECTORY)
get_filename_component(folder ${folder} NAME)
string(TOLOWER "s_${folder}_${name}" database)
string(REGEX REPLACE "[^a-z0-9_]" "_" database "${database}")

set(load ${WORKDIR}-load)
file(REMOVE_RECURSE ${load})
file(MAKE_DIRECTORY ${load})
execute_process(COMMAND ${TLRUN} make-demo ${load}/demo.gpkg RESULT_VARIABLE made OUTPUT_QUIET)
if(NOT made EQUAL 0)
  message(FATAL_ERROR "the demo data could not be written")
endif()
execute_process(
  COMMAND ${PSQL} -X -q -v ON_ERROR_STOP=1 "${server} dbname=postgres"
    -c "DROP DATABASE IF EXISTS ${database} WITH (FORCE)" -c "CREATE DATABASE ${database} TEMPLATE tl"
  RESULT_VARIABLE created ERROR_VARIABLE why)
if(NOT created EQUAL 0)
  message(FATAL_ERROR "cannot make the database ${database}: ${why}")
endif()
execute_process(
  COMMAND ${OGR2OGR} -f PostgreSQL "PG:${server} dbname=${database}" ${load}/demo.gpkg
    -preserve_fid -lco FID=fid -lco GEOMETRY_NAME=geom -lco LAUNDER=NO
  RESULT_VARIABLE loaded ERROR_VARIABLE why)
if(NOT loaded EQUAL 0)
  message(FATAL_ERROR "ogr2ogr could not load the demo data: ${why}")
endif()

file(READ ${SCRIPT} text)
string(REGEX REPLACE "(^|\n)demo-data demo\\.gpkg" "\\1# (the demo data are in the database)"
  text "${text}")
string(REGEX REPLACE "(^|\n)open demo\\.gpkg" "\\1open \"PG:${server} dbname=${database}\""
  text "${text}")
set(SCRIPT ${load}/${name}.tls)
file(WRITE ${SCRIPT} "${text}")
include(${CMAKE_CURRENT_LIST_DIR}/../scenarios/RunScenario.cmake)
execute_process(COMMAND ${PSQL} -X -q "${server} dbname=postgres"
  -c "DROP DATABASE IF EXISTS ${database} WITH (FORCE)" OUTPUT_QUIET ERROR_QUIET)
