// The library's own file, and files in its folder.
#pragma once

#include <cstddef>

namespace hexlume {

// Stores the path of the library's file. Returns false if the library isn't loaded under its own name, or the
// path doesn't fit.
bool ModuleFileName(char* path, size_t size);

// Deletes a file. Ignores errors, also that there is no such file. Never deletes a folder.
void DeleteFileIfThere(const char* path);

}  // namespace hexlume
