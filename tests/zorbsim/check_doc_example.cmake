# What docs/scenarios.md shows must be what the suite runs and what zorbsim prints, so that the
# documentation cannot drift from either:
#   EXAMPLE: the complete example is this scenario file as it stands;
#   ZORBSIM: the list of operations is what `zorbsim ops` prints.
#   cmake -DDOC=docs/scenarios.md -DEXAMPLE=tests/zorbsim/example.json -P check_doc_example.cmake
#   cmake -DDOC=docs/scenarios.md -DZORBSIM=build/linux/bin/zorbsim -P check_doc_example.cmake
file(READ "${DOC}" doc)
if(DEFINED EXAMPLE)
  file(READ "${EXAMPLE}" shown)
  set(block "```json\n${shown}```")
  set(what "${EXAMPLE} as its complete example")
else()
  execute_process(COMMAND "${ZORBSIM}" ops RESULT_VARIABLE exit_code OUTPUT_VARIABLE shown)
  if(NOT exit_code EQUAL 0)
    message(FATAL_ERROR "zorbsim ops exited with ${exit_code}")
  endif()
  set(block "```text\n${shown}```")
  set(what "the list of operations that zorbsim ops prints")
endif()
string(FIND "${doc}" "${block}" position)
if(position EQUAL -1)
  message(FATAL_ERROR "${DOC} does not show ${what}")
endif()
