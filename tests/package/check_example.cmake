# Installs the build into a fresh prefix, then configures, builds and tests the example consumer
# against that prefix alone, as an MX developer's project would be.
#   cmake -DBUILD_DIR=... -DEXAMPLE_DIR=... -DWORK_DIR=... -DTOOLCHAIN=... -P check_example.cmake
#   cmake ... -DCOMPILER=... -DCXX_FLAGS=... -DLINKER_FLAGS=... -P check_example.cmake   (native)
cmake_minimum_required(VERSION 3.25)

include(${CMAKE_CURRENT_LIST_DIR}/run_checked.cmake)

set(prefix ${WORK_DIR}/prefix)
set(build ${WORK_DIR}/example)
file(REMOVE_RECURSE ${WORK_DIR})

run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix})
# What the build imports from the host's and the simulator's type libraries is installed with it:
# the headers under the names users include, the libraries and their member references.
foreach(imported include/host/object_model.h include/host/members.h include/sim/simulator_control.h
                 lib/ZorbHost.tlb lib/ZorbSimulator.tlb share/doc/MXHostUtilities/host-members.md
                 share/doc/MXHostUtilities/simulator-members.md)
  if(NOT EXISTS ${prefix}/${imported})
    message(FATAL_ERROR "the install lacks ${imported}")
  endif()
endforeach()

# Off Windows the simulated host loads the host's type library from its own folder.
if(NOT TOOLCHAIN)
  file(GLOB_RECURSE simulator ${prefix}/libsim.so)
  cmake_path(GET simulator PARENT_PATH simulator_folder)
  if(NOT simulator OR NOT EXISTS ${simulator_folder}/ZorbHost.tlb)
    message(FATAL_ERROR "the install holds no ZorbHost.tlb beside libsim.so (${simulator})")
  endif()
endif()

if(TOOLCHAIN)
  # A cross build finds packages only below its find roots: the prefix becomes one.
  set(find_package_from -DCMAKE_TOOLCHAIN_FILE=${TOOLCHAIN} -DCMAKE_FIND_ROOT_PATH=${prefix})
else()
  set(find_package_from -DCMAKE_PREFIX_PATH=${prefix} -DCMAKE_CXX_COMPILER=${COMPILER}
      "-DCMAKE_CXX_FLAGS=${CXX_FLAGS}" "-DCMAKE_EXE_LINKER_FLAGS=${LINKER_FLAGS}")
endif()
run(${CMAKE_COMMAND} -S ${EXAMPLE_DIR} -B ${build} ${find_package_from} -DCMAKE_BUILD_TYPE=Release
    -DCMAKE_EXPORT_COMPILE_COMMANDS=ON)
run(${CMAKE_COMMAND} --build ${build} -j 2)

# The example must have found every header in the prefix, none in our source tree (the build
# folder, and the prefix in it, may lie inside the source tree).
cmake_path(GET EXAMPLE_DIR PARENT_PATH examples)
cmake_path(GET examples PARENT_PATH source_tree)
file(READ ${build}/compile_commands.json commands)
string(REGEX MATCHALL "-(I|isystem ?)[^ \"]+" include_flags "${commands}")
foreach(flag IN LISTS include_flags)
  string(REGEX REPLACE "^-(I|isystem ?)" "" folder "${flag}")
  cmake_path(NORMAL_PATH folder)
  cmake_path(IS_PREFIX source_tree "${folder}" in_tree)
  cmake_path(IS_PREFIX EXAMPLE_DIR "${folder}" in_example)
  cmake_path(IS_PREFIX WORK_DIR "${folder}" in_work)
  if(in_tree AND NOT in_example AND NOT in_work)
    message(FATAL_ERROR "the example includes from the source tree: ${folder}")
  endif()
endforeach()

run(${CMAKE_COMMAND} -E chdir ${build} ${CMAKE_CTEST_COMMAND} --output-on-failure)
message("${output}")
