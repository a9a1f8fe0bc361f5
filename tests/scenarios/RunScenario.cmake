# Plays one session script with tlrun and checks its exit status and transcript against the
# script's "# exit:" and "# output:" lines. Called by ctest with TLRUN, SCRIPT and WORKDIR.
file(REMOVE_RECURSE ${WORKDIR})
file(MAKE_DIRECTORY ${WORKDIR})
execute_process(COMMAND ${TLRUN} --workdir ${WORKDIR} ${SCRIPT}
  RESULT_VARIABLE status OUTPUT_VARIABLE transcript ERROR_VARIABLE errors)
message("${transcript}")
if(errors)
  message("${errors}")
endif()

set(expected 0)
file(STRINGS ${SCRIPT} exits REGEX "^# exit: [0-9]+$")
if(exits)
  string(REGEX REPLACE "^# exit: " "" expected "${exits}")
endif()
if(NOT status STREQUAL expected)
  message(FATAL_ERROR "tlrun ended with ${status}, expected ${expected}")
endif()

# The transcript echoes the script's comments, these lines among them: they are left out, so
# that an expected output can only be matched by what the session did.
string(REGEX REPLACE "(^|\n)#[^\n]*" "" said "${transcript}")
file(STRINGS ${SCRIPT} outputs REGEX "^# output: ")
foreach(line ${outputs})
  string(REGEX REPLACE "^# output: " "" pattern "${line}")
  if(NOT said MATCHES "${pattern}")
    message(FATAL_ERROR "the transcript does not show: ${pattern}")
  endif()
endforeach()
