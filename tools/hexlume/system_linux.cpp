#include <filesystem>

#include "tools/hexlume/system.h"

namespace hexlume {

void UsePlainLineEnds() {}

std::string Utf8Text(const std::string& text) {
  return text;
}

std::optional<uint64_t> FileSize(const std::string& path) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error)) return std::nullopt;
  const uint64_t size = std::filesystem::file_size(path, error);
  return error ? std::nullopt : std::optional<uint64_t>(size);
}

size_t FileNameStart(const std::string& path) {
  const size_t slash = path.rfind('/');
  return slash == std::string::npos ? 0 : slash + 1;
}

std::string PathKey(const std::string& path) {
  std::error_code error;
  std::string key = std::filesystem::weakly_canonical(std::filesystem::absolute(path, error), error).string();
  if (key.empty()) key = path;
  for (char& letter : key) {
    if (letter >= 'a' && letter <= 'z') letter = static_cast<char>(letter - 'a' + 'A');
  }
  return key;
}

}  // namespace hexlume
