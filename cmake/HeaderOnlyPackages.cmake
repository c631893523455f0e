# nlohmann/json and CLI11 are header-only Debian packages whose targets point at /usr/include.
# A cross build must not see the host's /usr/include (glibc headers would shadow MinGW's), so there
# the two header trees are staged into the build folder and the targets are pointed at that copy.
find_package(nlohmann_json 3.10 REQUIRED)
find_package(CLI11 REQUIRED)

if(CMAKE_CROSSCOMPILING)
  set(staged ${CMAKE_BINARY_DIR}/staged-headers)
  file(COPY /usr/include/nlohmann /usr/include/CLI DESTINATION ${staged})
  set_target_properties(nlohmann_json::nlohmann_json CLI11::CLI11
    PROPERTIES INTERFACE_INCLUDE_DIRECTORIES ${staged})
endif()
