# The Debian packages, which cpack makes of the components of the installation.
set(HEXLUME_MAINTAINER "The Hexlume developers <maintainers@hexlume.example>")
set(HEXLUME_CHANGELOG ${CMAKE_BINARY_DIR}/changelog.gz)
execute_process(
  COMMAND ${CMAKE_SOURCE_DIR}/scripts/debian_changelog.sh ${HEXLUME_MAINTAINER}
  COMMAND gzip -9nc
  OUTPUT_FILE ${HEXLUME_CHANGELOG} COMMAND_ERROR_IS_FATAL ANY)
foreach(COMPONENT_AND_NAME tool=hexlume batch=hexlume-batch)
  string(REPLACE "=" ";" COMPONENT_AND_NAME ${COMPONENT_AND_NAME})
  list(GET COMPONENT_AND_NAME 0 COMPONENT)
  list(GET COMPONENT_AND_NAME 1 NAME)
  add_custom_command(OUTPUT ${CMAKE_BINARY_DIR}/${NAME}.1.gz
    COMMAND gzip -9nc ${CMAKE_BINARY_DIR}/manual/${NAME}.1 > ${CMAKE_BINARY_DIR}/${NAME}.1.gz
    DEPENDS ${CMAKE_BINARY_DIR}/manual/${NAME}.1 VERBATIM)
  install(FILES ${CMAKE_BINARY_DIR}/${NAME}.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT ${COMPONENT})
endforeach()
add_custom_target(hexlume_manual_archive ALL
  DEPENDS ${CMAKE_BINARY_DIR}/hexlume.1.gz ${CMAKE_BINARY_DIR}/hexlume-batch.1.gz)
add_dependencies(hexlume_manual_archive hexlume_manual_pages hexlume_batch_manual_pages)

# Both tools hold the reader of their options and the writer of their reports, whose licences are asked for in copies too.
file(READ LICENSE HEXLUME_LICENCE)
file(READ /usr/share/doc/libcxxopts-dev/copyright HEXLUME_CXXOPTS_LICENCE)
file(READ /usr/share/doc/nlohmann-json3-dev/copyright HEXLUME_JSON_LICENCE)
file(WRITE ${CMAKE_BINARY_DIR}/licences/library "${HEXLUME_LICENCE}")
file(WRITE ${CMAKE_BINARY_DIR}/licences/development "${HEXLUME_LICENCE}")
foreach(COMPONENT_AND_NAME tool=hexlume batch=hexlume-batch)
  string(REPLACE "=" ";" COMPONENT_AND_NAME ${COMPONENT_AND_NAME})
  list(GET COMPONENT_AND_NAME 0 COMPONENT)
  list(GET COMPONENT_AND_NAME 1 NAME)
  file(WRITE ${CMAKE_BINARY_DIR}/licences/${COMPONENT}
    "${HEXLUME_LICENCE}\n\n${NAME} contains cxxopts, of which Debian's package says:\n\n${HEXLUME_CXXOPTS_LICENCE}\n\nand nlohmann-json, of which it says:\n\n${HEXLUME_JSON_LICENCE}")
endforeach()

function(hexlume_debian_package component name)
  install(FILES ${CMAKE_BINARY_DIR}/licences/${component}
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${name} RENAME copyright COMPONENT ${component})
  install(FILES ${HEXLUME_CHANGELOG} DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${name} COMPONENT ${component})
endfunction()
# The list of what is linked, beside the licence of each package with programs or libraries.
function(hexlume_debian_sbom component name)
  set(SBOM ${CMAKE_BINARY_DIR}/sbom/${name}.cdx.json)
  list(TRANSFORM ARGN REPLACE "(.+)" "$<TARGET_FILE:\\1>" OUTPUT_VARIABLE FILES)
  add_custom_command(OUTPUT ${SBOM}
    COMMAND ${CMAKE_SOURCE_DIR}/scripts/make_sbom.py debian ${SBOM} ${name} ${FILES}
    DEPENDS ${CMAKE_SOURCE_DIR}/scripts/make_sbom.py ${ARGN} VERBATIM)
  add_custom_target(hexlume_sbom_${component} ALL DEPENDS ${SBOM})
  install(FILES ${SBOM} DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${name} RENAME sbom.cdx.json COMPONENT ${component})
endfunction()
hexlume_debian_sbom(tool hexlume hexlume_tool hexlume_pictures)
hexlume_debian_sbom(batch hexlume-batch hexlume_batch)
hexlume_debian_sbom(library libhexlume1 hexlume hexlume_host)

hexlume_debian_package(tool hexlume)
hexlume_debian_package(batch hexlume-batch)
hexlume_debian_package(library libhexlume1)
hexlume_debian_package(development libhexlume-dev)
# The documents link to the licence by this name.
file(CREATE_LINK copyright ${CMAKE_BINARY_DIR}/licences/LICENSE SYMBOLIC)
install(FILES ${CMAKE_BINARY_DIR}/licences/LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT development)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME hexlume)
set(CPACK_PACKAGE_CONTACT ${HEXLUME_MAINTAINER})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_COMPONENTS_ALL tool batch library development)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")

set(CPACK_DEBIAN_TOOL_PACKAGE_NAME hexlume)
set(CPACK_DEBIAN_TOOL_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_TOOL_PACKAGE_DEPENDS "libhexlume1 (= ${PROJECT_VERSION}), libnettle8")
set(CPACK_DEBIAN_TOOL_DESCRIPTION "converter of DXF drawings to enhanced metafiles
hexlume converts drawings in ASCII DXF to enhanced metafiles (EMF), and to
pictures in PNG, SVG and PDF. It draws a part of a sheet, turned, in colour
or black, and lists what a metafile holds.")

set(CPACK_DEBIAN_BATCH_PACKAGE_NAME hexlume-batch)
set(CPACK_DEBIAN_BATCH_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_BATCH_PACKAGE_DEPENDS "libhexlume1 (= ${PROJECT_VERSION})")
# Neither is needed on one machine.
set(CPACK_DEBIAN_BATCH_PACKAGE_SUGGESTS "hexlume, openssh-client, parallel, slurm-client")
set(CPACK_DEBIAN_BATCH_DESCRIPTION "converter of DXF drawings for archives beyond one machine
hexlume-batch converts archives of drawings in ASCII DXF to enhanced
metafiles (EMF) and to pictures in PNG, SVG and PDF: in processes of one
machine, over ssh with GNU parallel, or on a cluster with Slurm. It can be
stopped and started again at any time, and says of each drawing what became
of it.")

set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME libhexlume1)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
# The others are found by what is linked. These are loaded (src/platform/portable/loaded_library.h), in versions that have all
# functions that are called.
set(CPACK_DEBIAN_LIBRARY_PACKAGE_DEPENDS "libfontconfig1 (>= 2.14.1), libfreetype6 (>= 2.3.9), libpixman-1-0 (>= 0.11.2)")
file(WRITE ${CMAKE_BINARY_DIR}/triggers "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA ${CMAKE_BINARY_DIR}/triggers)
# Texts are measured with a Japanese Gothic font.
set(CPACK_DEBIAN_LIBRARY_PACKAGE_RECOMMENDS "fonts-ipafont-gothic")
set(CPACK_DEBIAN_LIBRARY_DESCRIPTION "libraries that turn DXF drawings into enhanced metafiles
Hexlume reads a drawing in ASCII DXF group by group and draws each entity at
once into an enhanced metafile (EMF): the same picture as on Windows, stroke
for stroke.

This package has the libraries: libhexlume for programs that know its nine
functions from Windows, libhexlume_host for all others.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libhexlume-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "libhexlume1 (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "libraries that turn DXF drawings into enhanced metafiles - development
Hexlume reads a drawing in ASCII DXF group by group and draws each entity at
once into an enhanced metafile (EMF): the same picture as on Windows, stroke
for stroke.

This package has headers, files for CMake and pkg-config, documents, and
examples of hosts in several languages.")
include(CPack)
