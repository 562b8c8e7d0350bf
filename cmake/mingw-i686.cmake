set(CMAKE_SYSTEM_PROCESSOR i686)
include(${CMAKE_CURRENT_LIST_DIR}/mingw.cmake)

# Each operation must be rounded to a double, as in the other builds, so x87 registers can't be used.
set(CMAKE_CXX_FLAGS_INIT "-msse2 -mfpmath=sse")
