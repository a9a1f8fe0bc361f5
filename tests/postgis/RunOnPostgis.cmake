# Plays a session script written for the demo GeoPackage on the same data in PostGIS: a fresh
# database is made from "tl_demo" (LoadDemo.cmake), and the script plays with its
# "open demo.gpkg" opening that database instead. The script's own expectations must hold
# unchanged; RunScenario.cmake checks them. Called by ctest with TLRUN, SCRIPT, WORKDIR, STATE
# (the server's connection file) and PSQL.
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
execute_process(
  COMMAND ${PSQL} -X -q -v ON_ERROR_STOP=1 "${server} dbname=postgres"
    -c "DROP DATABASE IF EXISTS ${database} WITH (FORCE)"
    -c "CREATE DATABASE ${database} TEMPLATE tl_demo"
  RESULT_VARIABLE created ERROR_VARIABLE why)
if(NOT created EQUAL 0)
  message(FATAL_ERROR "cannot make the database ${database}: ${why}")
endif()

file(READ ${SCRIPT} text)
string(REGEX REPLACE "(^|\n)demo-data demo\\.gpkg" "\\1# (the demo data are in the database)"
  text "${text}")
string(REGEX REPLACE "(^|\n)open demo\\.gpkg" "\\1open \"PG:${server} dbname=${database}\""
  text "${text}")
set(SCRIPT ${WORKDIR}-script/${name}.tls)
file(WRITE ${SCRIPT} "${text}")
include(${CMAKE_CURRENT_LIST_DIR}/../scenarios/RunScenario.cmake)
execute_process(COMMAND ${PSQL} -X -q "${server} dbname=postgres"
  -c "DROP DATABASE IF EXISTS ${database} WITH (FORCE)" OUTPUT_QUIET ERROR_QUIET)
