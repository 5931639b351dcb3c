# tavrel-headless --help: the usage of the template on standard output,
# nothing on standard error, status 0.   -DPROGRAM=...
execute_process(COMMAND ${PROGRAM} --help OUTPUT_VARIABLE output ERROR_VARIABLE errors RESULT_VARIABLE status TIMEOUT 20)
if(NOT status STREQUAL "0" OR NOT errors STREQUAL "")
  message(FATAL_ERROR "status ${status}\nstderr:\n${errors}")
endif()
if(NOT output MATCHES "^Usage: tavrel-headless \\[FILE\\.\\.\\.\\] \\[PUBSCREEN name\\]\nTemplate: FILE/M,PUBSCREEN/K\n")
  message(FATAL_ERROR "no usage:\n${output}")
endif()
