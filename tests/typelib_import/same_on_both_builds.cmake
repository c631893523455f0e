# Runs the linux build's typelib_import natively (the portable runtime) and the windows build's
# under Wine (the platform's) on the same type libraries, and fails on any byte in which what they
# write differs.
#   cmake -DNATIVE_TOOL=... -DEMULATOR=... -DWINDOWS_TOOL=... -DLIBRARIES=a.tlb|b.tlb -DWORK_DIR=...
#         -P same_on_both_builds.cmake
cmake_minimum_required(VERSION 3.25)

if(NOT EXISTS ${NATIVE_TOOL})
  message(FATAL_ERROR "${NATIVE_TOOL} is missing: build the linux build first")
endif()
file(REMOVE_RECURSE ${WORK_DIR})
file(MAKE_DIRECTORY ${WORK_DIR}/linux ${WORK_DIR}/windows)

set(differing)
string(REPLACE "|" ";" libraries "${LIBRARIES}")
foreach(library IN LISTS libraries)
  get_filename_component(name ${library} NAME_WE)
  foreach(kind header members reference)
    foreach(build linux windows)
      set(written_${build} ${WORK_DIR}/${build}/${name}.${kind})
    endforeach()
    execute_process(COMMAND ${NATIVE_TOOL} ${kind} ${library} ${written_linux} RESULT_VARIABLE failed)
    execute_process(COMMAND ${EMULATOR} ${WINDOWS_TOOL} ${kind} ${library} ${written_windows}
      RESULT_VARIABLE failed_under_wine)
    if(failed OR failed_under_wine)
      message(FATAL_ERROR "typelib_import ${kind} ${library}: linux ${failed}, windows ${failed_under_wine}")
    endif()
    execute_process(COMMAND ${CMAKE_COMMAND} -E compare_files ${written_linux} ${written_windows}
      RESULT_VARIABLE differs)
    if(differs)
      execute_process(COMMAND diff -u ${written_linux} ${written_windows})
      list(APPEND differing "${name} ${kind}")
    endif()
  endforeach()
endforeach()
if(differing)
  list(JOIN differing ", " listed)
  message(FATAL_ERROR "the builds wrote different files: ${listed}")
endif()
