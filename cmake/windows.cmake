enable_language(RC)

# The same sources give the same bytes: no time of the build in libraries and programs.
add_link_options(-Wl,--no-insert-timestamp)

set(SYSTEM_DIALOGS_SOURCES
  src/dialogs/check_page.cpp
  src/dialogs/font_scale.cpp
  src/dialogs/layer_page.cpp
  src/dialogs/line_page.cpp
  src/dialogs/menu_font.cpp
  src/dialogs/selection_sheet.cpp
  src/dialogs/size_dialog.cpp
  src/dialogs/theme.cpp
  src/dialogs/toolkit/check_box_image.cpp
  src/dialogs/toolkit/check_list_box.cpp
  src/dialogs/toolkit/combo_box.cpp
  src/dialogs/toolkit/cstring.cpp
  src/dialogs/toolkit/dialog.cpp
  src/dialogs/toolkit/gdi_objects.cpp
  src/dialogs/toolkit/modal_run.cpp
  src/dialogs/toolkit/module.cpp
  src/dialogs/toolkit/property_sheet.cpp
  src/dialogs/toolkit/row_tip.cpp
  src/dialogs/toolkit/wide_text.cpp
  src/dialogs/toolkit/wnd.cpp
)
set(PLATFORM_SOURCES
  src/platform/code_page_932.cpp
  src/platform/ellipse_scan.cpp
  src/platform/path_region.cpp
  src/platform/polygon_scan.cpp
  src/platform/unmapped_file.cpp
  src/platform/portable/double_text.cpp
  src/platform/windows/box_region.cpp
  src/platform/windows/fault_guard.cpp
  src/platform/windows/file_size.cpp
  src/platform/windows/full_width.cpp
  src/platform/windows/host_exception.cpp
  src/platform/windows/japanese_locale.cpp
  src/platform/windows/last_error.cpp
  src/platform/windows/module_file.cpp
  src/platform/windows/pen_stroke.cpp
  src/platform/windows/reference_dc.cpp
  src/platform/windows/run_objects.cpp
  src/platform/windows/stack_room.cpp
  src/platform/windows/system_version.cpp
)
set(PLATFORM_LIBRARIES gdi32 comctl32 comdlg32)

# The resource script is in UTF-8.
set(CMAKE_RC_FLAGS "-c 65001")
configure_file(src/dialogs/hexlume.manifest.in ${CMAKE_BINARY_DIR}/hexlume.manifest @ONLY)
set_source_files_properties(src/dialogs/hexlume.rc PROPERTIES
  COMPILE_DEFINITIONS "HEXLUME_VERSION=${PROJECT_VERSION};HEXLUME_VERSION_NUMBERS=${PROJECT_VERSION_MAJOR},${PROJECT_VERSION_MINOR},${PROJECT_VERSION_PATCH},0"
  INCLUDE_DIRECTORIES ${CMAKE_BINARY_DIR}
  OBJECT_DEPENDS ${CMAKE_BINARY_DIR}/hexlume.manifest)
set(EXPORTS_SOURCES src/driver/hexlume.def src/dialogs/hexlume.rc)
set(CMAKE_SHARED_LIBRARY_PREFIX "")
set(LIBRARY_PROPERTIES OUTPUT_NAME Hexlume)
# Links the C++ runtime into the library, so that a host needs nothing but Windows.
set(LIBRARY_LINK_OPTIONS -static)
