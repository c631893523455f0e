# What `cmake --install` puts in place: the libraries, zorbsim, the public headers under the names
# the sources include them by, and the CMake package QRNExternalUtilities with namespaced targets.
# The headers and member references imported from the host's and the simulator's type libraries
# are installed where they are imported (host/CMakeLists.txt, sim/CMakeLists.txt).
include(CMakePackageConfigHelpers)

set(mx_package QRNExternalUtilities)
set(mx_package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/${mx_package})

install(TARGETS QRNExternalUtilities QRNRoots sim automation framework host imported_call
  EXPORT ${mx_package}Targets
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(TARGETS zorbsim RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
# The host's and the simulator's type libraries and their IDL, for clients that bind to them by
# name. They lie beside libsim.so, which serves late-bound calls from them (the windows build's
# sim.dll carries both as its resources).
install(FILES ${MX_HOST_TYPE_LIBRARY} ${MX_SIM_TYPE_LIBRARY} DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(FILES ${PROJECT_SOURCE_DIR}/host/idl/ZorbHost.idl DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/host)
install(FILES ${PROJECT_SOURCE_DIR}/sim/idl/ZorbSimulator.idl DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/sim)

install(DIRECTORY
    ${PROJECT_SOURCE_DIR}/platform/automation/include/
    ${PROJECT_SOURCE_DIR}/platform/framework/include/
    ${PROJECT_SOURCE_DIR}/host/include/
    ${PROJECT_SOURCE_DIR}/tools/typelib_import/include/
    ${PROJECT_SOURCE_DIR}/sim/include/
    ${PROJECT_SOURCE_DIR}/QRNRoots/Exp/
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(FILES
    ${PROJECT_SOURCE_DIR}/QRNExternalUtilities/ZORBAppUtilities.h
    ${PROJECT_SOURCE_DIR}/QRNExternalUtilities/CADPlotUtilities.h
    ${PROJECT_SOURCE_DIR}/QRNExternalUtilities/DWGPropsXWrap.h
    ${PROJECT_SOURCE_DIR}/QRNExternalUtilities/QRNExternalUtilitiesApi.h
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(EXPORT ${mx_package}Targets NAMESPACE ${mx_package}:: DESTINATION ${mx_package_dir})

# The pages a user of the package reads beside it: the scenario format, host states, the test helper
# and driving the host by name. zorbsim's help names this folder (ZORBSIM_DOC_FOLDER).
install(FILES
    ${PROJECT_SOURCE_DIR}/docs/scenarios.md
    ${PROJECT_SOURCE_DIR}/docs/simulated-host.md
    ${PROJECT_SOURCE_DIR}/docs/testing-with-the-simulated-host.md
    ${PROJECT_SOURCE_DIR}/docs/driving-by-name.md
  DESTINATION ${CMAKE_INSTALL_DOCDIR})

# The simulated host's headers include nlohmann/json. A Windows machine has no copy of it for this
# compiler, so the Windows package carries the headers the build used.
if(CMAKE_CROSSCOMPILING)
  install(DIRECTORY ${CMAKE_BINARY_DIR}/staged-headers/nlohmann DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
  set(MX_PACKAGE_CARRIES_JSON_HEADERS ON)
else()
  set(MX_PACKAGE_CARRIES_JSON_HEADERS OFF)
endif()

# The test helper is the package's component "testing": only it needs GoogleTest.
if(MX_BUILD_TEST_HELPER)
  install(TARGETS sim_testing EXPORT ${mx_package}TestingTargets ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/testing/include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
  install(EXPORT ${mx_package}TestingTargets NAMESPACE ${mx_package}:: DESTINATION ${mx_package_dir})
endif()

configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/${mx_package}Config.cmake.in
  ${CMAKE_BINARY_DIR}/${mx_package}Config.cmake INSTALL_DESTINATION ${mx_package_dir}
  PATH_VARS CMAKE_INSTALL_INCLUDEDIR)
write_basic_package_version_file(${CMAKE_BINARY_DIR}/${mx_package}ConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_BINARY_DIR}/${mx_package}Config.cmake ${CMAKE_BINARY_DIR}/${mx_package}ConfigVersion.cmake
  DESTINATION ${mx_package_dir})
