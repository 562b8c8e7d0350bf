#include "tools/hexlume/system/file_output.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace hexlume {
namespace {

std::string* collected = nullptr;

}  // namespace

void CollectStandardOutput(std::string* text) {
  collected = text;
}

void WriteWholeFile(const std::string& path, const std::vector<uint8_t>& bytes) {
  WholeFile file(path);
  file.Write(bytes.data(), bytes.size());
  file.Commit();
}

void WriteToStandardOutput(const std::string& text) {
  WriteToStandardOutput(text.data(), text.size());
}

void WriteToStandardOutput(const void* bytes, size_t size) {
  if (collected) {
    collected->append(static_cast<const char*>(bytes), size);
    return;
  }
  errno = 0;
  if (std::fwrite(bytes, 1, size, stdout) != size || std::fflush(stdout) != 0)
    throw OutputError("standard output", std::strerror(errno));
}

}  // namespace hexlume
