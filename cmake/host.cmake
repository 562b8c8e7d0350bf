# The library for hosts written today, of the objects of host_objects.cmake.
if(WIN32)
  set(HOST_EXPORTS src/host/hexlume_host.def src/host/hexlume_host.rc)
  set(HOST_PROPERTIES OUTPUT_NAME HexlumeHost)
  set(HOST_LINK_OPTIONS -static)
  set_source_files_properties(src/host/hexlume_host.rc PROPERTIES
    COMPILE_DEFINITIONS "HEXLUME_VERSION=${PROJECT_VERSION};HEXLUME_VERSION_NUMBERS=${PROJECT_VERSION_MAJOR},${PROJECT_VERSION_MINOR},${PROJECT_VERSION_PATCH},0")
else()
  set(HOST_EXPORTS src/host/hexlume_host.map)
  set(HOST_PROPERTIES OUTPUT_NAME hexlume_host VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR}
    LINK_DEPENDS ${CMAKE_SOURCE_DIR}/src/host/hexlume_host.map)
  set(HOST_LINK_OPTIONS -Wl,--version-script=${CMAKE_SOURCE_DIR}/src/host/hexlume_host.map -Wl,--no-undefined)
endif()

add_library(hexlume_host SHARED ${HOST_EXPORTS})
set_target_properties(hexlume_host PROPERTIES ${HOST_PROPERTIES} LINKER_LANGUAGE CXX)
target_include_directories(hexlume_host INTERFACE
  $<BUILD_INTERFACE:${CMAKE_SOURCE_DIR}/include> $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
target_link_libraries(hexlume_host PRIVATE hexlume_host_objects hexlume_core)
target_link_options(hexlume_host PRIVATE ${HOST_LINK_OPTIONS})
