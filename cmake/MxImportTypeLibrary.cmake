# mx_import_type_library(<target> TLB <file.tlb> [HEADER <file.h> [INCLUDES <header>...]]
#                        [MEMBERS <file.h> [NAMESPACE <name>]] [REFERENCE <file.md>] [DEPENDS <target>...])
# Writes at build time what typelib_import makes of a compiled type library: the C++ header of its
# interfaces, the header of its members' journal names, its Markdown reference. <target> is an
# interface library that writes them before anything that links it is compiled, and brings
# imported_call.h, which the header includes; the caller gives it the include folder it wants.
# INCLUDES names, as the header includes them, the headers of the libraries whose types it uses.
# DEPENDS names the targets that make the type library.
function(mx_import_type_library target)
  cmake_parse_arguments(ARG "" "TLB;HEADER;MEMBERS;NAMESPACE;REFERENCE" "INCLUDES;DEPENDS" ${ARGN})
  if(NOT ARG_TLB)
    message(FATAL_ERROR "mx_import_type_library(${target}): TLB is required")
  endif()
  set(outputs)
  foreach(kind HEADER MEMBERS REFERENCE)
    if(NOT ARG_${kind})
      continue()
    endif()
    string(TOLOWER ${kind} command)
    set(options)
    if(kind STREQUAL "MEMBERS" AND ARG_NAMESPACE)
      set(options --namespace ${ARG_NAMESPACE})
    endif()
    if(kind STREQUAL "HEADER")
      foreach(include ${ARG_INCLUDES})
        list(APPEND options --include ${include})
      endforeach()
    endif()
    get_filename_component(folder ${ARG_${kind}} DIRECTORY)
    # A target as the command runs through the build's emulator (Wine, on the windows build).
    add_custom_command(OUTPUT ${ARG_${kind}}
      COMMAND ${CMAKE_COMMAND} -E make_directory ${folder}
      COMMAND typelib_import ${command} ${ARG_TLB} ${ARG_${kind}} ${options}
      DEPENDS typelib_import ${ARG_TLB} ${ARG_DEPENDS}
      COMMENT "Importing the ${command} of ${ARG_TLB}"
      VERBATIM)
    list(APPEND outputs ${ARG_${kind}})
  endforeach()
  add_library(${target} INTERFACE ${outputs})
  target_link_libraries(${target} INTERFACE mx::imported_call)
endfunction()
