# WebAssembly, with Debian's emscripten. Its compiler runs in a Node that can also be another one than Debian's, which
# finds Debian's modules by NODE_PATH: see CMakePresets.json.
include(/usr/share/emscripten/cmake/Modules/Platform/Emscripten.cmake)

# Exceptions of WebAssembly itself: no call through JavaScript wherever an object has a destructor.
set(CMAKE_CXX_FLAGS_INIT -fwasm-exceptions)
