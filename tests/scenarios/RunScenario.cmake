# Plays one session script with tlrun in a fresh working folder and checks how it ended against
# the script's own comment lines:
#   # exit: N          the exit status (0 when not given)
#   # output: REGEX    a CMake regular expression the transcript must match (any number of them)
#   # error: REGEX     one the standard error must match (any number of them)
#   # data: FILE       a demo GeoPackage written at FILE in the working folder before the run
#   # untouched: FILE  FILE must be byte for byte what it was before the run
#   # arguments: FILE  data named after the script on tlrun's command line, in the working folder
#   # copy: FILE       FILE, a path beside the script, copied into the working folder first
#   # plugin: faulty   the faulty test plugin (FAULTY_PLUGIN) is loaded instead of the real one
# Called by ctest with TLRUN, SCRIPT, WORKDIR and FAULTY_PLUGIN.
file(REMOVE_RECURSE ${WORKDIR})
file(MAKE_DIRECTORY ${WORKDIR})

file(STRINGS ${SCRIPT} data REGEX "^# data: ")
foreach(line ${data})
  string(REGEX REPLACE "^# data: " "" file "${line}")
  execute_process(COMMAND ${TLRUN} make-demo ${WORKDIR}/${file} RESULT_VARIABLE made
    OUTPUT_QUIET)
  if(NOT made EQUAL 0)
    message(FATAL_ERROR "the demo data ${file} could not be written")
  endif()
endforeach()

get_filename_component(script_dir ${SCRIPT} DIRECTORY)
file(STRINGS ${SCRIPT} copies REGEX "^# copy: ")
foreach(line ${copies})
  string(REGEX REPLACE "^# copy: " "" file "${line}")
  file(COPY ${script_dir}/${file} DESTINATION ${WORKDIR})
endforeach()

file(STRINGS ${SCRIPT} untouched REGEX "^# untouched: ")
foreach(line ${untouched})
  string(REGEX REPLACE "^# untouched: " "" file "${line}")
  file(SHA256 ${WORKDIR}/${file} before_${file})
endforeach()

set(arguments)
file(STRINGS ${SCRIPT} named REGEX "^# arguments: ")
foreach(line ${named})
  string(REGEX REPLACE "^# arguments: " "" file "${line}")
  list(APPEND arguments ${WORKDIR}/${file})
endforeach()

set(plugin)
file(STRINGS ${SCRIPT} faulty REGEX "^# plugin: faulty$")
if(faulty)
  set(plugin --plugin ${FAULTY_PLUGIN})
endif()

execute_process(COMMAND ${TLRUN} ${plugin} --workdir ${WORKDIR} ${SCRIPT} ${arguments}
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
file(STRINGS ${SCRIPT} complaints REGEX "^# error: ")
foreach(line ${complaints})
  string(REGEX REPLACE "^# error: " "" pattern "${line}")
  if(NOT errors MATCHES "${pattern}")
    message(FATAL_ERROR "the standard error does not say: ${pattern}")
  endif()
endforeach()

foreach(line ${untouched})
  string(REGEX REPLACE "^# untouched: " "" file "${line}")
  file(SHA256 ${WORKDIR}/${file} after)
  if(NOT after STREQUAL before_${file})
    message(FATAL_ERROR "${file} was changed")
  endif()
endforeach()
