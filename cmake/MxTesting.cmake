# mx_add_gtest(<name> SOURCES ... LIBS ...)
# One GoogleTest program per layer. On Linux each test case becomes a CTest test. Under Wine the
# program is one CTest test: a Wine start per case costs up to 3 s, and with two cases starting at
# once Wine now and then stalls one of them for about 30 s, which would make the run slow and flaky.
include(GoogleTest)

function(mx_add_gtest name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LIBS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ${ARG_LIBS} GTest::gtest GTest::gtest_main GTest::gmock)
  if(CMAKE_CROSSCOMPILING)
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES TIMEOUT 600)
  else()
    gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60)
  endif()
endfunction()
