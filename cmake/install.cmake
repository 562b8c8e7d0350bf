# The installed package: library, public headers, tool, documents with the examples, and the files by which CMake and
# pkg-config find the library.
include(CMakePackageConfigHelpers)

set(HEXLUME_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/Hexlume)
set(HEXLUME_PKGCONFIG_DIR ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

install(TARGETS hexlume hexlume_host EXPORT HexlumeTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(TARGETS hexlume_tool RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES include/hexlume.h include/hexlume_system.h include/hexlume_answers.h include/hexlume_host.h include/hexlume_host.hpp
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
# All that a link in one of the documents leads to.
install(FILES README.md CHANGELOG.md CONTRIBUTING.md LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY docs examples DESTINATION ${CMAKE_INSTALL_DOCDIR} PATTERN Doxyfile EXCLUDE)
# The reference pages, if scripts/reference.sh has made them.
install(DIRECTORY build/reference/html/ DESTINATION ${CMAKE_INSTALL_DOCDIR}/reference OPTIONAL)

install(EXPORT HexlumeTargets NAMESPACE Hexlume:: DESTINATION ${HEXLUME_CMAKE_DIR})
configure_package_config_file(cmake/HexlumeConfig.cmake.in ${CMAKE_BINARY_DIR}/HexlumeConfig.cmake
  INSTALL_DESTINATION ${HEXLUME_CMAKE_DIR})
write_basic_package_version_file(${CMAKE_BINARY_DIR}/HexlumeConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_BINARY_DIR}/HexlumeConfig.cmake ${CMAKE_BINARY_DIR}/HexlumeConfigVersion.cmake
  DESTINATION ${HEXLUME_CMAKE_DIR})

# The prefix is relative to the directory of the pkg-config file, so that an installed tree can be moved.
file(RELATIVE_PATH PKGCONFIG_TO_PREFIX /${HEXLUME_PKGCONFIG_DIR} /)
configure_file(cmake/hexlume.pc.in ${CMAKE_BINARY_DIR}/hexlume.pc @ONLY)
configure_file(cmake/hexlume_host.pc.in ${CMAKE_BINARY_DIR}/hexlume_host.pc @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/hexlume.pc ${CMAKE_BINARY_DIR}/hexlume_host.pc DESTINATION ${HEXLUME_PKGCONFIG_DIR})
