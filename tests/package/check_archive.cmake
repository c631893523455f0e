# Makes the package archive with CPack and checks that it holds exactly what an install puts in
# place, under one top folder named after the package.
#   cmake -DBUILD_DIR=... -DWORK_DIR=... -DARCHIVE_SUFFIX=.tar.gz|.zip -P check_archive.cmake
cmake_minimum_required(VERSION 3.25)

include(${CMAKE_CURRENT_LIST_DIR}/run_checked.cmake)

file(REMOVE_RECURSE ${WORK_DIR})
run(${CMAKE_CPACK_COMMAND} --config ${BUILD_DIR}/CPackConfig.cmake -B ${WORK_DIR}/package)
file(GLOB archive ${WORK_DIR}/package/QRNExternalUtilities-*${ARCHIVE_SUFFIX})
list(LENGTH archive archives)
if(NOT archives EQUAL 1)
  message(FATAL_ERROR "expected one *${ARCHIVE_SUFFIX} archive, found: ${archive}")
endif()
cmake_path(GET archive FILENAME archive_name)
string(REPLACE "${ARCHIVE_SUFFIX}" "" top "${archive_name}")

run(${CMAKE_COMMAND} -E chdir ${WORK_DIR} ${CMAKE_COMMAND} -E tar xf ${archive})
file(GLOB_RECURSE archived RELATIVE ${WORK_DIR}/${top} ${WORK_DIR}/${top}/*)
run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${WORK_DIR}/prefix)
file(GLOB_RECURSE installed RELATIVE ${WORK_DIR}/prefix ${WORK_DIR}/prefix/*)
list(SORT archived)
list(SORT installed)
if(NOT archived STREQUAL installed)
  message(FATAL_ERROR "${archive_name} differs from the install:\narchive: ${archived}\ninstall: ${installed}")
endif()
if(NOT "lib/cmake/QRNExternalUtilities/QRNExternalUtilitiesConfig.cmake" IN_LIST archived)
  message(FATAL_ERROR "${archive_name} holds no package configuration: ${archived}")
endif()
list(LENGTH archived files)
message("${archive_name}: ${files} files, the same as the install")
