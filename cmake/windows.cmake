set(PLATFORM_SOURCES
  src/platform/portable/code_page_932.cpp
  src/platform/windows/fault_guard.cpp
  src/platform/windows/full_width.cpp
  src/platform/windows/host_exception.cpp
  src/platform/windows/japanese_locale.cpp
  src/platform/windows/module_file.cpp
  src/platform/windows/reference_dc.cpp
  src/platform/windows/stack_room.cpp
  src/platform/windows/system_version.cpp
)
set(PLATFORM_LIBRARIES gdi32 comdlg32)

set(EXPORTS_SOURCES src/driver/hexlume.def)
set(CMAKE_SHARED_LIBRARY_PREFIX "")
set(LIBRARY_PROPERTIES OUTPUT_NAME Hexlume)
# The C++ runtime goes into the library: a host needs nothing but Windows.
set(LIBRARY_LINK_OPTIONS -static)
