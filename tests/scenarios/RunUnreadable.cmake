# Scripts tlrun cannot read, or whose errors echo a word with a newline in it. Each must end in
# exit status 2 with one line on the standard error that names the file, and run nothing.
# Called by ctest with TLRUN and WORKDIR.
file(REMOVE_RECURSE ${WORKDIR})
file(MAKE_DIRECTORY ${WORKDIR})

function(expect_refusal script pattern)
  execute_process(COMMAND ${TLRUN} --workdir ${WORKDIR} ${script}
    RESULT_VARIABLE status OUTPUT_VARIABLE transcript ERROR_VARIABLE errors)
  if(NOT status EQUAL 2)
    message(FATAL_ERROR "${script}: tlrun ended with ${status}, expected 2\n${transcript}")
  endif()
  if(transcript)
    message(FATAL_ERROR "${script}: a script that cannot be read ran:\n${transcript}")
  endif()
  # The toolkit's own start-up remarks are not the runner's.
  string(REGEX REPLACE "QStandardPaths: [^\n]*\n" "" errors "${errors}")
  string(REGEX MATCHALL "\n" breaks "${errors}")
  list(LENGTH breaks lines)
  if(NOT lines EQUAL 1 OR NOT errors MATCHES "${pattern}\n$")
    message(FATAL_ERROR "${script}: expected one line matching ${pattern}, got:\n${errors}")
  endif()
endfunction()

# A folder opens, but holds no script.
file(MAKE_DIRECTORY ${WORKDIR}/adir.tls)
expect_refusal(${WORKDIR}/adir.tls "adir.tls: cannot read the script")
# A missing file.
expect_refusal(${WORKDIR}/missing.tls "missing.tls: cannot read the script")
# Comments only: a test that runs nothing must not pass.
file(WRITE ${WORKDIR}/comments.tls "# nothing to do\n\n")
expect_refusal(${WORKDIR}/comments.tls "comments.tls: cannot read the script: it holds no command")
# Bytes that are no UTF-8 text.
string(ASCII 255 254 junk)
file(WRITE ${WORKDIR}/latin.tls "# fine\nkey ${junk}\n")
expect_refusal(${WORKDIR}/latin.tls
  "latin.tls:2: cannot read the script: the line is not UTF-8 text")
# A quoted word that holds a newline is echoed with the newline escaped.
file(WRITE ${WORKDIR}/newline.tls "key \"a\\nb\"\n")
expect_refusal(${WORKDIR}/newline.tls "newline.tls:1: \"a\\\\nb\" is no key[^\n]*")
