// The library's own file and what lies beside it.
#pragma once

#include <cstddef>

namespace hexlume {

// Stores the path of the library's file. False if it isn't loaded under its own name or the path doesn't fit.
bool ModuleFileName(char* path, size_t size);

// Deletes a file; one that isn't there, or can't be deleted, is left alone without a word. Never deletes a
// folder.
void DeleteFileIfThere(const char* path);

}  // namespace hexlume
