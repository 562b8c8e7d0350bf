# Our own GDI uses pixman for regions, and freetype and fontconfig for fonts. It isn't linked with them: they are loaded with the
# first region and the first text.
find_package(PkgConfig REQUIRED)
pkg_check_modules(PORTABLE_GDI REQUIRED pixman-1 freetype2 fontconfig)
add_library(portable_gdi INTERFACE)
target_include_directories(portable_gdi SYSTEM INTERFACE ${PORTABLE_GDI_INCLUDE_DIRS})
target_link_libraries(portable_gdi INTERFACE ${CMAKE_DL_LIBS})

# The host's answers replace the dialogs.
set(SYSTEM_DIALOGS_SOURCES
  src/dialogs/answers/dialog_answers.cpp
  src/dialogs/answers/selection_sheet.cpp
  src/dialogs/answers/size_dialog.cpp
)
set(PLATFORM_SOURCES
  src/platform/code_page_932.cpp
  src/platform/ellipse_scan.cpp
  src/platform/path_region.cpp
  src/platform/polygon_scan.cpp
  src/platform/portable/arc_bounds.cpp
  src/platform/portable/box_region.cpp
  src/platform/portable/device_context.cpp
  src/platform/portable/double_text.cpp
  src/platform/portable/emf_writer.cpp
  src/platform/portable/fault_guard.cpp
  src/platform/portable/file_face.cpp
  src/platform/portable/file_size.cpp
  src/platform/portable/font_face.cpp
  src/platform/portable/font_libraries.cpp
  src/platform/portable/fonts.cpp
  src/platform/portable/full_width.cpp
  src/platform/portable/gdi_object.cpp
  src/platform/portable/growing_block.cpp
  src/platform/portable/host_exception.cpp
  src/platform/portable/japanese_locale.cpp
  src/platform/portable/last_error.cpp
  src/platform/portable/loaded_library.cpp
  src/platform/portable/mapped_file.cpp
  src/platform/portable/metafile.cpp
  src/platform/portable/modes.cpp
  src/platform/portable/module_file.cpp
  src/platform/portable/objects.cpp
  src/platform/portable/pen_stroke.cpp
  src/platform/portable/reference_dc.cpp
  src/platform/portable/region_data.cpp
  src/platform/portable/region_library.cpp
  src/platform/portable/region_records.cpp
  src/platform/portable/regions.cpp
  src/platform/portable/shapes.cpp
  src/platform/portable/stack_room.cpp
  src/platform/portable/strokes.cpp
  src/platform/portable/system_version.cpp
  src/platform/portable/text_out.cpp
  src/platform/portable/vertical_glyphs.cpp
)
set(PLATFORM_LIBRARIES portable_gdi)

# Only the exports are visible outside the library, so functions are inlined as in a program.
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
target_compile_options(hexlume_options INTERFACE -fno-semantic-interposition)
set(EXPORTS_SOURCES src/driver/hexlume.map)
set(LIBRARY_PROPERTIES OUTPUT_NAME hexlume VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR}
  LINK_DEPENDS ${CMAKE_SOURCE_DIR}/src/driver/hexlume.map)
set(LIBRARY_LINK_OPTIONS -Wl,--version-script=${CMAKE_SOURCE_DIR}/src/driver/hexlume.map -Wl,--no-undefined)
