# After demo session 03: the roads' sequence goes back to the highest road stored (see
# RunDemoOnPostgis.cmake). Included by RunDemo.cmake with `session`, `server`, `database`, PSQL.
get_filename_component(played ${session} NAME)
if(played MATCHES "^03-")
  execute_process(
    COMMAND ${PSQL} -X -q -v ON_ERROR_STOP=1 "${server} dbname=${database}" -c
      "SELECT setval(pg_get_serial_sequence('roads', 'fid'), (SELECT max(fid) FROM roads))"
    RESULT_VARIABLE rewound OUTPUT_QUIET ERROR_VARIABLE why)
  if(NOT rewound EQUAL 0)
    message(FATAL_ERROR "cannot set back the roads' sequence: ${why}")
  endif()
endif()
