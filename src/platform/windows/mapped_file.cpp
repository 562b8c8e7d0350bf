#include "platform/mapped_file.h"

#include <windows.h>

#include <limits>

namespace hexlume {

namespace {

// Null if the file isn't mapped.
void* Map(HANDLE file, size_t size) {
  const HANDLE mapping = CreateFileMappingA(file, nullptr, PAGE_READONLY, 0, 0, nullptr);
  if (!mapping) return nullptr;
  void* const start = MapViewOfFile(mapping, FILE_MAP_READ, 0, 0, size);
  CloseHandle(mapping);
  return start;
}

}  // namespace

std::unique_ptr<MappedFile> MappedFile::Open(const char* path, int64_t leastSize) {
  const HANDLE file = CreateFileA(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                  OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr);
  if (file == INVALID_HANDLE_VALUE) return nullptr;
  LARGE_INTEGER size;
  const bool isMapped = GetFileType(file) == FILE_TYPE_DISK && GetFileSizeEx(file, &size) &&
                        size.QuadPart >= leastSize &&
                        static_cast<uint64_t>(size.QuadPart) <= std::numeric_limits<size_t>::max();
  void* const start = isMapped ? Map(file, static_cast<size_t>(size.QuadPart)) : nullptr;
  CloseHandle(file);
  if (!start) return nullptr;
  return std::unique_ptr<MappedFile>(new MappedFile(start, static_cast<size_t>(size.QuadPart)));
}

MappedFile::~MappedFile() {
  UnmapViewOfFile(start);
}

}  // namespace hexlume
