# GoogleTest, as GTest::gtest and GTest::gtest_main. It is built from its sources where they are installed, as it must be
# built for the target system and should have the preset's flags, the sanitizers' among them. A native build can also use
# an installed library.
set(GOOGLETEST_SOURCES /usr/src/googletest/googletest CACHE PATH
  "GoogleTest's sources, by default those of Debian's package googletest")

if(EXISTS ${GOOGLETEST_SOURCES}/CMakeLists.txt)
  add_subdirectory(${GOOGLETEST_SOURCES} ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
  if(WIN32)
    # What the cross compilers' library lacks for it.
    target_include_directories(gtest BEFORE PUBLIC ${CMAKE_SOURCE_DIR}/tests/support/googletest)
  endif()
elseif(NOT CMAKE_CROSSCOMPILING)
  find_package(GTest QUIET)
endif()
