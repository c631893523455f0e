# Runs zorbsim once and checks what a user would see: the exit code, and patterns in stdout and
# stderr. With ABSENT_FILE, that file must not exist afterwards (nothing half written).
#   cmake -DZORBSIM=... "-DARGS=run|a.json" -DEXIT=2 [-DEMULATOR=...] [-DSTDOUT=regex] [-DSTDERR=regex]
#         [-DABSENT_FILE=path] [-DWRITTEN_FILE=path -DWRITTEN=regex] [-DNO_PARTIAL_IN=folder]
#         [-DKEPT_FILE=path] -P check_zorbsim.cmake
# With NO_PARTIAL_IN, no temporary dump file may be left in that folder. With KEPT_FILE, that file
# must hold afterwards what it held before.
# Arguments come separated by "|": a ";" would not survive add_test.
string(REPLACE "|" ";" ARGS "${ARGS}")

if(DEFINED ABSENT_FILE)
  file(REMOVE "${ABSENT_FILE}")
endif()
if(DEFINED WRITTEN_FILE)
  file(REMOVE "${WRITTEN_FILE}")
endif()
if(DEFINED KEPT_FILE)
  file(READ "${KEPT_FILE}" kept_before)
endif()

# EMULATOR: the windows build's (Wine), empty in the Linux build. A Windows program ends its lines
# with CR LF; the patterns are written for LF.
execute_process(COMMAND ${EMULATOR} "${ZORBSIM}" ${ARGS}
  RESULT_VARIABLE exit_code OUTPUT_VARIABLE out ERROR_VARIABLE err)
string(REPLACE "\r\n" "\n" out "${out}")
string(REPLACE "\r\n" "\n" err "${err}")
message("${out}")
message("${err}")

if(NOT exit_code STREQUAL "${EXIT}")
  message(FATAL_ERROR "zorbsim exited with ${exit_code}, expected ${EXIT}")
endif()
if(DEFINED STDOUT AND NOT out MATCHES "${STDOUT}")
  message(FATAL_ERROR "stdout does not match: ${STDOUT}")
endif()
if(DEFINED STDERR AND NOT err MATCHES "${STDERR}")
  message(FATAL_ERROR "stderr does not match: ${STDERR}")
endif()
if(DEFINED ABSENT_FILE AND EXISTS "${ABSENT_FILE}")
  message(FATAL_ERROR "${ABSENT_FILE} was written")
endif()
if(DEFINED WRITTEN_FILE)
  if(NOT EXISTS "${WRITTEN_FILE}")
    message(FATAL_ERROR "${WRITTEN_FILE} was not written")
  endif()
  file(READ "${WRITTEN_FILE}" written)
  if(NOT written MATCHES "${WRITTEN}")
    message(FATAL_ERROR "${WRITTEN_FILE} does not match: ${WRITTEN}")
  endif()
endif()
if(DEFINED KEPT_FILE)
  file(READ "${KEPT_FILE}" kept_after)
  if(NOT kept_after STREQUAL kept_before)
    message(FATAL_ERROR "${KEPT_FILE} was changed")
  endif()
endif()
if(DEFINED NO_PARTIAL_IN)
  file(GLOB leftovers "${NO_PARTIAL_IN}/*.partial")
  if(leftovers)
    message(FATAL_ERROR "temporary files left behind: ${leftovers}")
  endif()
endif()
