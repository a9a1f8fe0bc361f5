# Plays the demo sessions (SESSIONS/*.tls, in name order) on the demo data in PostGIS, each going
# on from what the one before saved, as RunDemo.cmake plays them on the GeoPackage: every
# "open demo.gpkg" opens one fresh database made from "tl_demo" (LoadDemo.cmake) instead. Called
# by ctest with TLRUN, SESSIONS, WORKDIR, STATE (the server's connection file) and PSQL.
file(STRINGS ${STATE} server LIMIT_COUNT 1)
if(NOT server MATCHES "^PG:")
  message(FATAL_ERROR "no PostGIS server: ${STATE} was not written (see postgis.start)")
endif()
string(REGEX REPLACE "^PG:" "" server "${server}")
string(REGEX REPLACE " *dbname=[^ ]+" "" server "${server}")
set(database s_demo_sessions)
execute_process(
  COMMAND ${PSQL} -X -q -v ON_ERROR_STOP=1 "${server} dbname=postgres"
    -c "DROP DATABASE IF EXISTS ${database} WITH (FORCE)"
    -c "CREATE DATABASE ${database} TEMPLATE tl_demo"
  RESULT_VARIABLE created ERROR_VARIABLE why)
if(NOT created EQUAL 0)
  message(FATAL_ERROR "cannot make the database ${database}: ${why}")
endif()
set(rewritten ${WORKDIR}-sessions)
file(REMOVE_RECURSE ${rewritten})
file(GLOB sessions ${SESSIONS}/*.tls)
foreach(session ${sessions})
  get_filename_component(name ${session} NAME)
  file(READ ${session} text)
  # Annotation tables are made in GeoPackages only: the session that adds one is not played here.
  if(text MATCHES "(^|\n)annotation-table ")
    continue()
  endif()
  string(REGEX REPLACE "(^|\n)open demo\\.gpkg" "\\1open \"PG:${server} dbname=${database}\""
    text "${text}")
  # A refusal is said in the server's words.
  string(REGEX REPLACE "NOT NULL constraint failed: ([a-z_]+)\\.([a-z_]+)"
    "null value in column \\\\\"\\2\\\\\" of relation \\\\\"\\1\\\\\" violates not-null constraint"
    text "${text}")
  string(REGEX REPLACE "UNIQUE constraint failed: ([a-z_]+)\\.([a-z_]+)"
    "duplicate key value violates unique constraint \\\\\"\\1_\\2_key\\\\\"" text "${text}")
  file(WRITE ${rewritten}/${name} "${text}")
endforeach()
set(SESSIONS ${rewritten})
# Session 03 adds a road by mistake and undoes it. The database's sequence never gives that id
# again (other editors may have seen it), while a GeoPackage opened afresh gives the next road the
# id that was never stored. So that both replays name the same roads, the sequence is set back to
# the highest stored id after that session, as an administrator may do.
set(AFTER_SESSION ${CMAKE_CURRENT_LIST_DIR}/RewindRoadIds.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/../scenarios/RunDemo.cmake)
execute_process(COMMAND ${PSQL} -X -q "${server} dbname=postgres"
  -c "DROP DATABASE IF EXISTS ${database} WITH (FORCE)" OUTPUT_QUIET ERROR_QUIET)
