# For web pages: our own GDI with what WebAssembly has, no signals, no threads and no installed fonts. pixman and
# freetype are those of scripts/build_web_libraries.sh; fast_float has only headers, of the build machine.
set(WEB_LIBRARIES ${CMAKE_SOURCE_DIR}/build/web-libraries)
if(NOT EXISTS ${WEB_LIBRARIES}/lib/libfreetype.a OR NOT EXISTS ${WEB_LIBRARIES}/lib/libpixman-1.a)
  message(FATAL_ERROR "freetype and pixman are missing: run scripts/setup.sh web")
endif()
# Copied, because a cross compiler must not search the folder of the build machine's headers.
file(COPY /usr/include/fast_float DESTINATION ${CMAKE_BINARY_DIR}/include)
add_library(web_libraries INTERFACE)
target_include_directories(web_libraries SYSTEM INTERFACE
  ${CMAKE_BINARY_DIR}/include ${WEB_LIBRARIES}/include/freetype2 ${WEB_LIBRARIES}/include/pixman-1)
target_link_libraries(web_libraries INTERFACE
  ${WEB_LIBRARIES}/lib/libfreetype.a ${WEB_LIBRARIES}/lib/libpixman-1.a)

# Operators of bits on conditions are used where a loop must have no branch.
target_compile_options(hexlume_options INTERFACE -Wno-bitwise-instead-of-logical)

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
  src/platform/unmapped_file.cpp
  src/platform/portable/arc_bounds.cpp
  src/platform/portable/box_region.cpp
  src/platform/portable/device_context.cpp
  src/platform/portable/emf_writer.cpp
  src/platform/portable/file_face.cpp
  src/platform/portable/file_size.cpp
  src/platform/portable/fonts.cpp
  src/platform/portable/full_width.cpp
  src/platform/portable/gdi_object.cpp
  src/platform/portable/host_exception.cpp
  src/platform/portable/japanese_locale.cpp
  src/platform/portable/last_error.cpp
  src/platform/portable/metafile.cpp
  src/platform/portable/modes.cpp
  src/platform/portable/objects.cpp
  src/platform/portable/pen_stroke.cpp
  src/platform/portable/reference_dc.cpp
  src/platform/portable/region_data.cpp
  src/platform/portable/region_records.cpp
  src/platform/portable/regions.cpp
  src/platform/portable/shapes.cpp
  src/platform/portable/strokes.cpp
  src/platform/portable/system_version.cpp
  src/platform/portable/text_out.cpp
  src/platform/portable/vertical_glyphs.cpp
  src/platform/web/double_text.cpp
  src/platform/web/fault_guard.cpp
  src/platform/web/font_face.cpp
  src/platform/web/free_type.cpp
  src/platform/web/growing_block.cpp
  src/platform/web/module_file.cpp
  src/platform/web/progress.cpp
  src/platform/web/region_library.cpp
  src/platform/web/stack_room.cpp
)
set(PLATFORM_LIBRARIES web_libraries)
