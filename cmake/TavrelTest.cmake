# tavrel_add_test(NAME SOURCES file... LIBS lib... [LABELS label...])
#
# One GoogleTest executable, its cases registered one by one with CTest.
# The thread-sanitizer build compiles only the tests labelled "tsan"; they
# are gathered under the target tsan_tests.
find_package(GTest REQUIRED)
include(GoogleTest)
add_custom_target(tsan_tests)

function(tavrel_add_test name)
  cmake_parse_arguments(T "" "" "SOURCES;LIBS;LABELS" ${ARGN})
  if(TAVREL_SANITIZE STREQUAL "thread" AND NOT "tsan" IN_LIST T_LABELS)
    return()
  endif()
  add_executable(${name} ${T_SOURCES})
  target_link_libraries(${name} PRIVATE ${T_LIBS} GTest::gtest GTest::gmock GTest::gtest_main)
  # Where tests keep pictures and other results for a person to look at.
  target_compile_definitions(${name} PRIVATE TAVREL_ARTIFACTS_DIR="${CMAKE_BINARY_DIR}/artifacts")
  # A list inside PROPERTIES must keep its separators escaped, or its
  # items would be read as further property names and values.
  string(REPLACE ";" "\\;" labels "${T_LABELS}")
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST
    PROPERTIES LABELS "${labels}" ENVIRONMENT "QT_QPA_PLATFORM=offscreen" TIMEOUT 300)
  if("tsan" IN_LIST T_LABELS)
    add_dependencies(tsan_tests ${name})
  endif()
endfunction()
