# The complete example of docs/scenarios.md must be tests/zorbsim/example.json as it stands, so
# that the example the documentation shows is the one the suite runs.
#   cmake -DDOC=docs/scenarios.md -DEXAMPLE=tests/zorbsim/example.json -P check_doc_example.cmake
file(READ "${DOC}" doc)
file(READ "${EXAMPLE}" example)
string(FIND "${doc}" "```json\n${example}```" position)
if(position EQUAL -1)
  message(FATAL_ERROR "${DOC} does not show ${EXAMPLE} as its complete example")
endif()
