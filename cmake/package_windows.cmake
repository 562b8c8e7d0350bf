# Import libraries for Microsoft's linker, beside those of the cross compiler, and the licences of what is linked in.
find_program(LLVM_DLLTOOL llvm-dlltool REQUIRED)
if(CMAKE_SIZEOF_VOID_P EQUAL 8)
  set(HEXLUME_MACHINE i386:x86-64)
else()
  set(HEXLUME_MACHINE i386)
endif()

function(hexlume_import_library name definitions)
  add_custom_command(OUTPUT ${CMAKE_BINARY_DIR}/lib/${name}.lib
    COMMAND ${LLVM_DLLTOOL} -m ${HEXLUME_MACHINE} -D ${name}.dll -d ${CMAKE_SOURCE_DIR}/${definitions}
      -l ${CMAKE_BINARY_DIR}/lib/${name}.lib
    DEPENDS ${CMAKE_SOURCE_DIR}/${definitions})
endfunction()
hexlume_import_library(Hexlume src/driver/hexlume.def)
hexlume_import_library(HexlumeHost src/host/hexlume_host.def)

set(HEXLUME_IMPORT_LIBRARIES ${CMAKE_BINARY_DIR}/lib/Hexlume.lib ${CMAKE_BINARY_DIR}/lib/HexlumeHost.lib)
add_custom_target(hexlume_import_libraries ALL DEPENDS ${HEXLUME_IMPORT_LIBRARIES})
install(FILES ${HEXLUME_IMPORT_LIBRARIES} DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)

# The runtimes are in the DLLs and the program, the reader of options and the writer of reports in the program.
install(FILES /usr/share/doc/libcxxopts-dev/copyright
  DESTINATION licences RENAME cxxopts.txt COMPONENT licence)
install(FILES /usr/share/doc/nlohmann-json3-dev/copyright
  DESTINATION licences RENAME nlohmann-json.txt COMPONENT licence)
install(FILES /usr/share/doc/mingw-w64-common/copyright
  DESTINATION licences RENAME mingw-w64.txt COMPONENT licence)
install(FILES /usr/share/doc/gcc-mingw-w64-base/copyright
  DESTINATION licences RENAME gcc.txt COMPONENT licence)

# The list of what is linked.
set(HEXLUME_SBOM ${CMAKE_BINARY_DIR}/sbom.cdx.json)
add_custom_command(OUTPUT ${HEXLUME_SBOM}
  COMMAND ${CMAKE_SOURCE_DIR}/scripts/make_sbom.py windows ${HEXLUME_SBOM} hexlume ${MINGW_PREFIX}
  DEPENDS ${CMAKE_SOURCE_DIR}/scripts/make_sbom.py VERBATIM)
add_custom_target(hexlume_sbom ALL DEPENDS ${HEXLUME_SBOM})
install(FILES ${HEXLUME_SBOM} DESTINATION . COMPONENT licence)
