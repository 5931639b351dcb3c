# Runs tavrel-headless the way a user starts it from a shell: in a scratch
# directory holding files whose names look like patterns or keywords, a
# directory and a FIFO, with the names as typed. Compares standard output
# with EXPECTED byte for byte, and the lines of standard error with those of
# EXPECTED_ERRORS in any order.
#   -DPROGRAM=... -DSCRATCH=... -DSCRIPT=... -DEXPECTED=... -DEXPECTED_ERRORS=...
#   -DARGS=a;b
file(REMOVE_RECURSE ${SCRATCH})
file(MAKE_DIRECTORY ${SCRATCH}/folder)
file(WRITE "${SCRATCH}/report (1).txt" "report\n")
file(WRITE "${SCRATCH}/it's.txt" "quote\n")
file(WRITE "${SCRATCH}/[draft].txt" "draft\n")
file(WRITE "${SCRATCH}/file" "keyword\n")
file(WRITE "${SCRATCH}/pubscreen" "screen\n")
execute_process(COMMAND mkfifo ${SCRATCH}/fifo RESULT_VARIABLE made)
if(NOT made EQUAL 0)
  message(FATAL_ERROR "mkfifo failed")
endif()
execute_process(
  COMMAND ${CMAKE_COMMAND} -E env LC_ALL=C LANG=C ${PROGRAM} --events ${SCRIPT} ${ARGS}
  WORKING_DIRECTORY ${SCRATCH}
  OUTPUT_VARIABLE output
  ERROR_VARIABLE errors
  RESULT_VARIABLE status
  TIMEOUT 60)
file(REMOVE_RECURSE ${SCRATCH})
string(REPLACE "${SCRATCH}" "<scratch>" output "${output}")
file(READ ${EXPECTED} expected)
file(READ ${EXPECTED_ERRORS} expectedErrors)
if(NOT status STREQUAL "0")
  message(FATAL_ERROR "status ${status}\nstderr:\n${errors}")
endif()
if(NOT output STREQUAL expected)
  message(FATAL_ERROR "output differs from ${EXPECTED}\n--- got:\n${output}--- stderr:\n${errors}")
endif()
# Texts start at once, so their reports come in any order; each is one line.
string(REPLACE "\n" ";" errors "${errors}")
list(SORT errors)
string(REPLACE ";" "\n" errors "${errors}")
string(REPLACE "\n" ";" expectedErrors "${expectedErrors}")
list(SORT expectedErrors)
string(REPLACE ";" "\n" expectedErrors "${expectedErrors}")
if(NOT errors STREQUAL expectedErrors)
  message(FATAL_ERROR "stderr differs from ${EXPECTED_ERRORS}\n--- got:\n${errors}")
endif()
