# mx_import_type_library(<target> TLB <file.tlb> INCLUDE_DIR <folder>
#                        [HEADER <path> [INCLUDES <header>...]] [MEMBERS <path> [NAMESPACE <name>]]
#                        [REFERENCE <file.md>] [DEPENDS <target>...] [INSTALL])
# Writes at build time what typelib_import makes of a compiled type library: the C++ header of its
# interfaces and the header of its members' journal names, each at its path below INCLUDE_DIR (the
# path a source includes it by), and its Markdown reference. <target> is an interface library that
# writes them before anything that links it is compiled, and gives INCLUDE_DIR and imported_call.h,
# which the header includes, to what links it (in the build tree only). INCLUDES names, as the
# header includes them, the headers of the libraries whose types it uses. DEPENDS names the targets
# that make the type library. INSTALL installs both headers under the same paths below the
# package's include folder and the reference with the package's documentation.
function(mx_import_type_library target)
  cmake_parse_arguments(ARG "INSTALL" "TLB;INCLUDE_DIR;HEADER;MEMBERS;NAMESPACE;REFERENCE" "INCLUDES;DEPENDS"
    ${ARGN})
  if(NOT ARG_TLB OR NOT ARG_INCLUDE_DIR)
    message(FATAL_ERROR "mx_import_type_library(${target}): TLB and INCLUDE_DIR are required")
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
    if(kind STREQUAL "REFERENCE")
      set(output ${ARG_REFERENCE})
    else()
      set(output ${ARG_INCLUDE_DIR}/${ARG_${kind}})
      if(ARG_INSTALL)
        get_filename_component(subfolder ${ARG_${kind}} DIRECTORY)
        install(FILES ${output} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/${subfolder})
      endif()
    endif()
    get_filename_component(folder ${output} DIRECTORY)
    # A target as the command runs through the build's emulator (Wine, on the windows build).
    add_custom_command(OUTPUT ${output}
      COMMAND ${CMAKE_COMMAND} -E make_directory ${folder}
      COMMAND typelib_import ${command} ${ARG_TLB} ${output} ${options}
      DEPENDS typelib_import ${ARG_TLB} ${ARG_DEPENDS}
      COMMENT "Importing the ${command} of ${ARG_TLB}"
      VERBATIM)
    list(APPEND outputs ${output})
  endforeach()
  if(ARG_INSTALL AND ARG_REFERENCE)
    install(FILES ${ARG_REFERENCE} DESTINATION ${CMAKE_INSTALL_DOCDIR})
  endif()
  add_library(${target} INTERFACE ${outputs})
  target_include_directories(${target} INTERFACE $<BUILD_INTERFACE:${ARG_INCLUDE_DIR}>)
  target_link_libraries(${target} INTERFACE mx::imported_call)
endfunction()
