# mx_add_type_library(<target> IDL <file.idl> OUTPUT <file.tlb> [IMPORTS <target>...])
# Compiles an IDL description into a type library with widl, on either build: the compiler is a
# build-machine tool, and the system IDL files it imports (oaidl.idl ...) and the standard type
# library it refers to (stdole2.tlb) come from Wine's development files. IMPORTS names type
# libraries of this function whose IDL the description imports and whose compiled file its library
# imports: widl finds both beside the originals.
find_program(MX_WIDL NAMES x86_64-w64-mingw32-widl widl REQUIRED
  DOC "IDL compiler that writes type libraries")
find_path(MX_WIDL_SYSTEM_IDL oaidl.idl
  PATHS /usr/include/wine/wine/windows /usr/include/wine/windows NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH
  DOC "Folder of the system IDL files (Debian: libwine-dev)")
find_path(MX_WIDL_STDOLE stdole2.tlb
  PATHS /usr/lib/x86_64-linux-gnu/wine/x86_64-windows /usr/lib/wine/x86_64-windows NO_DEFAULT_PATH
  NO_CMAKE_FIND_ROOT_PATH DOC "Folder of stdole2.tlb (Debian: wine64)")
if(NOT MX_WIDL_SYSTEM_IDL OR NOT MX_WIDL_STDOLE)
  message(FATAL_ERROR "widl needs oaidl.idl (Debian: libwine-dev) and stdole2.tlb (Debian: wine64)")
endif()

function(mx_add_type_library target)
  cmake_parse_arguments(ARG "" "IDL;OUTPUT" "IMPORTS" ${ARGN})
  get_filename_component(idl ${ARG_IDL} ABSOLUTE)
  set(search -I${MX_WIDL_SYSTEM_IDL} -L${MX_WIDL_STDOLE})
  set(inputs ${idl})
  foreach(imported ${ARG_IMPORTS})
    get_target_property(imported_idl ${imported} MX_IDL)
    get_target_property(imported_library ${imported} MX_TYPE_LIBRARY)
    get_filename_component(idl_folder ${imported_idl} DIRECTORY)
    get_filename_component(library_folder ${imported_library} DIRECTORY)
    list(APPEND search -I${idl_folder} -L${library_folder})
    list(APPEND inputs ${imported_idl} ${imported_library})
  endforeach()
  add_custom_command(OUTPUT ${ARG_OUTPUT}
    COMMAND ${MX_WIDL} ${search} -t -o ${ARG_OUTPUT} ${idl}
    DEPENDS ${inputs}
    COMMENT "Compiling ${ARG_IDL} into a type library"
    VERBATIM)
  add_custom_target(${target} ALL DEPENDS ${ARG_OUTPUT})
  # An imported library is made by a command of another folder, which this folder's rules cannot
  # name: its target must come first.
  if(ARG_IMPORTS)
    add_dependencies(${target} ${ARG_IMPORTS})
  endif()
  set_target_properties(${target} PROPERTIES MX_IDL ${idl} MX_TYPE_LIBRARY ${ARG_OUTPUT})
endfunction()
