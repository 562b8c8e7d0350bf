# What the builds for packages add to a plain build. They give the same bytes wherever the sources are, have no symbols but the
# exports, and make the files that only packages have.
target_compile_options(hexlume_options INTERFACE -ffile-prefix-map=${CMAKE_SOURCE_DIR}=.)
target_link_options(hexlume_options INTERFACE -s)

# The changelog's first release is the one that is packaged: "## [1.0.0] - 2026-11-22".
file(STRINGS CHANGELOG.md HEXLUME_RELEASES REGEX "^## ")
list(GET HEXLUME_RELEASES 0 HEXLUME_RELEASE)
if(NOT HEXLUME_RELEASE MATCHES "^## \\[${PROJECT_VERSION}\\] - [0-9]+-[0-9]+-[0-9]+$")
  message(FATAL_ERROR "CHANGELOG.md begins with \"${HEXLUME_RELEASE}\", but the version is ${PROJECT_VERSION}.")
endif()

if(WIN32)
  include(cmake/package_windows.cmake)
else()
  include(cmake/package_debian.cmake)
endif()
