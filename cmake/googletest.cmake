# GoogleTest, as GTest::gtest and GTest::gtest_main. If its sources are installed, it is built from them, for the target
# system. Otherwise a native build uses an installed library.
set(GOOGLETEST_SOURCES /usr/src/googletest/googletest CACHE PATH
  "GoogleTest's sources, by default those of Debian's package googletest")

if(EXISTS ${GOOGLETEST_SOURCES}/CMakeLists.txt)
  add_subdirectory(${GOOGLETEST_SOURCES} ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
  # It isn't what is tested, and takes a minute to build with the sanitizers.
  target_compile_options(gtest PRIVATE -O1 -fno-sanitize=all)
  if(WIN32)
    # Headers that GoogleTest needs and the cross compilers lack.
    target_include_directories(gtest BEFORE PUBLIC ${CMAKE_SOURCE_DIR}/tests/support/googletest)
  endif()
elseif(NOT CMAKE_CROSSCOMPILING)
  find_package(GTest QUIET)
endif()
