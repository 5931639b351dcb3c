# Runs one event script through tavrel-headless in the root directory (so
# that full path names in titles are the same everywhere), in the language
# LANGUAGE whatever the user's own, and compares its
# standard output byte for byte with the expected file, and its status.
#   -DPROGRAM=... -DSCRIPT=... -DEXPECTED=... -DSTATUS=0|2 -DSOURCE_DIR=...
#   -DLANGUAGE=C|de_DE.UTF-8|... -DRUNTIME_DIR=... [-DARGS=a;b] -DWORK_DIR=...
#   -DCONFIG_DIR=... [-DPREFS=file]
# RUNTIME_DIR is the script's own XDG_RUNTIME_DIR, so clips it writes meet
# no other program's. CONFIG_DIR is its own XDG_CONFIG_HOME, empty unless
# PREFS names a preferences file to start with, so the user's own
# preferences never reach a test.
# In the script, <e2e> names the scripts' own folder (for files dropped on a
# window), and <work> an empty folder of its own for the files it writes;
# the script is then run from a copy under WORK_DIR.
file(REMOVE_RECURSE ${RUNTIME_DIR})
file(MAKE_DIRECTORY ${RUNTIME_DIR})
file(REMOVE_RECURSE ${CONFIG_DIR})
file(MAKE_DIRECTORY ${CONFIG_DIR}/tavrel)
if(PREFS)
  file(COPY_FILE ${PREFS} ${CONFIG_DIR}/tavrel/Tavrel.prefs)
endif()
get_filename_component(name ${SCRIPT} NAME_WE)
set(scratch ${WORK_DIR}/written/${name})
file(REMOVE_RECURSE ${scratch})
file(MAKE_DIRECTORY ${scratch})
file(READ ${SCRIPT} events)
if(events MATCHES "<e2e>|<work>")
  get_filename_component(name ${SCRIPT} NAME)
  string(REPLACE "<e2e>" "${SOURCE_DIR}" events "${events}")
  string(REPLACE "<work>" "${scratch}" events "${events}")
  file(WRITE ${WORK_DIR}/${name} "${events}")
  set(SCRIPT ${WORK_DIR}/${name})
endif()
execute_process(
  COMMAND ${CMAKE_COMMAND} -E env XDG_RUNTIME_DIR=${RUNTIME_DIR} XDG_CONFIG_HOME=${CONFIG_DIR} LC_ALL=${LANGUAGE} LC_MESSAGES=${LANGUAGE} LANG=${LANGUAGE} ${PROGRAM} --events ${SCRIPT} ${ARGS}
  WORKING_DIRECTORY /
  OUTPUT_VARIABLE output
  ERROR_VARIABLE errors
  RESULT_VARIABLE status
  TIMEOUT 60)
# Files of the scripts' own folder show in titles with their full path,
# which differs from checkout to checkout.
string(REPLACE "${SOURCE_DIR}" "<e2e>" output "${output}")
string(REPLACE "${scratch}" "<work>" output "${output}")
# The free memory a requester tells changes from run to run.
string(REGEX REPLACE "\\|(Free [^\n]*) [0-9]+\n" "|\\1 <bytes>\n" output "${output}")
file(REMOVE_RECURSE ${scratch})
file(READ ${EXPECTED} expected)
if(NOT status STREQUAL STATUS)
  message(FATAL_ERROR "status ${status}, expected ${STATUS}\nstderr:\n${errors}")
endif()
if(NOT output STREQUAL expected)
  message(FATAL_ERROR "output differs from ${EXPECTED}\n--- got:\n${output}--- stderr:\n${errors}")
endif()
