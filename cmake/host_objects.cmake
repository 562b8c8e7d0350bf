# The objects of the library for hosts written today: the core once more, with the host's answers in place of dialogs,
# also on Windows, and with neither what the other library does at its load nor what it keeps between calls.
set(HOST_SOURCES
  src/host/arguments.cpp
  src/host/bound_text.cpp
  src/host/conversion.cpp
  src/host/diagnosis.cpp
  src/host/drawing_reader.cpp
  src/host/host_api.cpp
  src/host/host_run.cpp
  src/host/inspection.cpp
  src/host/metafile_bytes.cpp
  src/host/metafile_cut.cpp
  src/host/preparation.cpp
  src/host/recent_format.cpp
  src/host/status_text.cpp
  src/host/utf8.cpp
)
if(WIN32)
  set(HOST_SYSTEM_SOURCES
    src/dialogs/answers/dialog_answers.cpp
    src/dialogs/answers/selection_sheet.cpp
    src/dialogs/answers/size_dialog.cpp
    # A fault stays in the library, and the locale of the process as it is.
    src/platform/portable/host_exception.cpp
    src/platform/portable/japanese_locale.cpp
    src/platform/windows/call_lock.cpp
    src/platform/windows/metafile_handle.cpp
    src/platform/windows/utf8_file.cpp
  )
elseif(EMSCRIPTEN)
  set(HOST_SYSTEM_SOURCES
    src/platform/portable/metafile_handle.cpp
    src/platform/web/call_lock.cpp
    src/platform/web/utf8_file.cpp
  )
else()
  set(HOST_SYSTEM_SOURCES
    src/platform/portable/call_lock.cpp
    src/platform/portable/metafile_handle.cpp
    src/platform/portable/utf8_file.cpp
  )
endif()

# Objects, which the linker takes before the archive's, and which tests link too.
add_library(hexlume_host_objects OBJECT ${HOST_SOURCES} ${HOST_SYSTEM_SOURCES})
target_link_libraries(hexlume_host_objects PUBLIC hexlume_options PRIVATE ${PLATFORM_LIBRARIES})
math(EXPR HEXLUME_VERSION_NUMBER
  "${PROJECT_VERSION_MAJOR} * 10000 + ${PROJECT_VERSION_MINOR} * 100 + ${PROJECT_VERSION_PATCH}")
set_source_files_properties(src/host/host_api.cpp PROPERTIES
  COMPILE_DEFINITIONS HEXLUME_VERSION_NUMBER=${HEXLUME_VERSION_NUMBER})
