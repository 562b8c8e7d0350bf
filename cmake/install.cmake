# The installed package: libraries, public headers, tool, documents with the examples, and the files by which CMake and
# pkg-config find the libraries. The components are those of the Debian packages; without one named, all are installed.
include(CMakePackageConfigHelpers)

set(HEXLUME_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/Hexlume)
set(HEXLUME_PKGCONFIG_DIR ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

install(TARGETS hexlume hexlume_host EXPORT HexlumeTargets
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT library
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library NAMELINK_COMPONENT development
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
install(TARGETS hexlume_tool RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT tool)
if(TARGET hexlume_pictures)
  install(TARGETS hexlume_pictures LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}/hexlume COMPONENT tool)
endif()

set(HEXLUME_HEADERS include/hexlume.h include/hexlume_system.h include/hexlume_host.h include/hexlume_host.hpp)
if(NOT WIN32)
  list(APPEND HEXLUME_HEADERS include/hexlume_answers.h)
endif()
install(FILES ${HEXLUME_HEADERS} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development)

install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT licence)
# All that a link in one of the documents leads to.
install(FILES README.md CHANGELOG.md CONTRIBUTING.md DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT development)
install(DIRECTORY docs DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT development
  PATTERN Doxyfile EXCLUDE)
install(DIRECTORY examples DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT development)
# The reference pages, if scripts/reference.sh has made them.
install(DIRECTORY build/reference/html/ DESTINATION ${CMAKE_INSTALL_DOCDIR}/reference COMPONENT development OPTIONAL)

install(EXPORT HexlumeTargets NAMESPACE Hexlume:: DESTINATION ${HEXLUME_CMAKE_DIR} COMPONENT development)
configure_package_config_file(cmake/HexlumeConfig.cmake.in ${CMAKE_BINARY_DIR}/HexlumeConfig.cmake
  INSTALL_DESTINATION ${HEXLUME_CMAKE_DIR} PATH_VARS CMAKE_INSTALL_LIBDIR)
write_basic_package_version_file(${CMAKE_BINARY_DIR}/HexlumeConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_BINARY_DIR}/HexlumeConfig.cmake ${CMAKE_BINARY_DIR}/HexlumeConfigVersion.cmake
  DESTINATION ${HEXLUME_CMAKE_DIR} COMPONENT development)

if(NOT WIN32)
  install(FILES ${CMAKE_BINARY_DIR}/manual/hexlume.bash
    DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME hexlume COMPONENT tool)
  install(FILES tools/hexlume/hexlume.thumbnailer DESTINATION ${CMAKE_INSTALL_DATADIR}/thumbnailers COMPONENT tool)
  install(TARGETS hexlume_batch RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT batch)
  install(FILES ${CMAKE_BINARY_DIR}/manual/hexlume-batch.bash
    DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME hexlume-batch COMPONENT batch)
  if(NOT HEXLUME_PACKAGE)
    install(FILES ${CMAKE_BINARY_DIR}/manual/hexlume-batch.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT batch)
    install(FILES ${CMAKE_BINARY_DIR}/manual/hexlume.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT tool)
  endif()

  # The prefix is relative to the directory of the pkg-config file, so that an installed tree can be moved.
  file(RELATIVE_PATH PKGCONFIG_TO_PREFIX /${HEXLUME_PKGCONFIG_DIR} /)
  configure_file(cmake/hexlume.pc.in ${CMAKE_BINARY_DIR}/hexlume.pc @ONLY)
  configure_file(cmake/hexlume_host.pc.in ${CMAKE_BINARY_DIR}/hexlume_host.pc @ONLY)
  install(FILES ${CMAKE_BINARY_DIR}/hexlume.pc ${CMAKE_BINARY_DIR}/hexlume_host.pc
    DESTINATION ${HEXLUME_PKGCONFIG_DIR} COMPONENT development)
endif()
