# Plays the demo sessions (SESSIONS/*.tls, in name order) with tlrun in one fresh working folder
# on fresh demo data, as scripts/demo does; every one must end with exit status 0. A caller may
# name AFTER_SESSION, a CMake file included after each session with `session` set.
file(REMOVE_RECURSE ${WORKDIR})
file(MAKE_DIRECTORY ${WORKDIR})
execute_process(COMMAND ${TLRUN} make-demo ${WORKDIR}/demo.gpkg RESULT_VARIABLE made OUTPUT_QUIET)
if(NOT made EQUAL 0)
  message(FATAL_ERROR "the demo data could not be written")
endif()
file(GLOB sessions ${SESSIONS}/*.tls)
list(SORT sessions)
foreach(session ${sessions})
  execute_process(COMMAND ${TLRUN} --workdir ${WORKDIR} ${session}
    RESULT_VARIABLE status OUTPUT_VARIABLE transcript ERROR_VARIABLE errors)
  message("${transcript}")
  if(NOT status EQUAL 0)
    message(FATAL_ERROR "${session} ended with ${status}: ${errors}")
  endif()
  if(DEFINED AFTER_SESSION)
    include(${AFTER_SESSION})
  endif()
endforeach()
