# The module's export list holds the three exported classes and nothing else: the interface
# implementations and every helper stay inside.
#   cmake -DLIBRARY=... -DLISTER=nm|objdump -DDEMANGLER=c++filt -P check_exports.cmake
if(LISTER MATCHES "objdump")
  execute_process(COMMAND "${LISTER}" -p "${LIBRARY}" OUTPUT_VARIABLE listing COMMAND_ERROR_IS_FATAL ANY)
  # The names follow the export table's heading, one "[  n] name" per line up to a blank line.
  string(REGEX MATCH "\\[Ordinal/Name Pointer\\] Table[^\n]*\n([^\n]+\n)*" table "${listing}")
  string(REGEX MATCHALL "\\[ *[0-9]+\\] [^\n]+" entries "${table}")
  list(TRANSFORM entries REPLACE "^\\[ *[0-9]+\\] " "")
else()
  execute_process(COMMAND "${LISTER}" -D --defined-only "${LIBRARY}" OUTPUT_VARIABLE listing COMMAND_ERROR_IS_FATAL ANY)
  string(REGEX MATCHALL "[^\n]+" lines "${listing}")
  set(entries "")
  foreach(line IN LISTS lines)
    string(REGEX REPLACE "^[0-9a-f]* *[A-Za-z] " "" name "${line}")
    list(APPEND entries "${name}")
  endforeach()
endif()

# Mangled names on the command line come back demangled, one per line.
execute_process(COMMAND "${DEMANGLER}" ${entries} OUTPUT_VARIABLE demangled COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "[^\n]+" names "${demangled}")
list(LENGTH names count)
message("${count} exported names:\n${demangled}")

set(owner "(ZORBAppUtilities|CADPlotUtilities|DWGPropsXWrap)")
# clang's function sanitizer (part of -fsanitize=undefined) marks every function with the typeinfo
# of its type, and exports that ("typeinfo for bool (MxtString const&)"); no class comes with it.
set(function_type "[^()]+ \\([^()]*\\)")
set(foreign "")
foreach(name IN LISTS names)
  if(NOT name MATCHES "^${owner}::" AND NOT name MATCHES "^(vtable|typeinfo|typeinfo name) for ${owner}$"
     AND NOT name MATCHES "^(typeinfo|typeinfo name) for ${function_type}$")
    list(APPEND foreign "${name}")
  endif()
endforeach()
if(foreign)
  string(REPLACE ";" "\n  " foreign "${foreign}")
  message(FATAL_ERROR "exported beyond the three classes:\n  ${foreign}")
endif()
foreach(class ZORBAppUtilities CADPlotUtilities DWGPropsXWrap)
  if(NOT demangled MATCHES "${class}::")
    message(FATAL_ERROR "${class} is not exported")
  endif()
endforeach()
