# Eight runs dumping to one file at the same time: every run succeeds, the file holds one whole
# state, and no temporary file is left.
#   cmake -DZORBSIM=... -DSCENARIO=... -DFOLDER=... -P check_concurrent_dumps.cmake
file(REMOVE_RECURSE "${FOLDER}")
file(MAKE_DIRECTORY "${FOLDER}")
set(target "${FOLDER}/state.json")
# Started together in the background; the shell fails when any of them did.
set(script [=[
pids=""
for run in 1 2 3 4 5 6 7 8; do
  "$0" run "$1" --dump-state "$2" >/dev/null & pids="$pids $!"
done
status=0
for pid in $pids; do wait "$pid" || status=1; done
exit $status
]=])
execute_process(COMMAND sh -c "${script}" "${ZORBSIM}" "${SCENARIO}" "${target}"
  RESULT_VARIABLE exit_code ERROR_VARIABLE errors)
if(NOT exit_code EQUAL 0)
  message(FATAL_ERROR "a run failed: ${errors}")
endif()
file(READ "${target}" state)
string(JSON groups ERROR_VARIABLE malformed LENGTH "${state}" menuGroups)
if(malformed)
  message(FATAL_ERROR "the dump is not one whole state: ${malformed}")
endif()
file(GLOB leftovers "${FOLDER}/*.partial")
if(leftovers)
  message(FATAL_ERROR "temporary files left behind: ${leftovers}")
endif()
