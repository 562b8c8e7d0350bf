set(CMAKE_SYSTEM_PROCESSOR i686)
include(${CMAKE_CURRENT_LIST_DIR}/mingw.cmake)

# A double must hold a double's precision between two operations, as it does in the other builds: no x87 registers.
set(CMAKE_CXX_FLAGS_INIT "-msse2 -mfpmath=sse")
