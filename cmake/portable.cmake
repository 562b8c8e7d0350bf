# Our own GDI stands on a region library and a font library.
find_package(PkgConfig REQUIRED)
pkg_check_modules(PORTABLE_GDI REQUIRED IMPORTED_TARGET pixman-1 freetype2 fontconfig)

set(PLATFORM_SOURCES
  src/platform/portable/fault_guard.cpp
  src/platform/portable/host_exception.cpp
  src/platform/portable/module_file.cpp
  src/platform/portable/reference_dc.cpp
  src/platform/portable/system_version.cpp
)
set(PLATFORM_LIBRARIES PkgConfig::PORTABLE_GDI)

# Nothing but the exports is to be seen from outside.
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(EXPORTS_SOURCES)
set(LIBRARY_PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION 0 LINK_DEPENDS ${CMAKE_SOURCE_DIR}/src/driver/hexlume.map)
set(LIBRARY_LINK_OPTIONS -Wl,--version-script=${CMAKE_SOURCE_DIR}/src/driver/hexlume.map -Wl,--no-undefined)
