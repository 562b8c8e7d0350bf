#include "support/text_drawing.h"

#include <cstdio>
#include <filesystem>
#include <random>
#include <sstream>
#include <stdexcept>

namespace hexlume {

namespace {

// The name is random, as several builds may run at once.
std::string FreshPath() {
  std::random_device random;
  const std::string name = "hexlume_" + std::to_string(random()) + "_" + std::to_string(random()) + ".dxf";
  return (std::filesystem::temp_directory_path() / name).string();
}

}  // namespace

std::string DrawingBytes(const std::string& groups, const std::string& lineEnd) {
  std::string bytes;
  std::istringstream lines(groups);
  for (std::string line; std::getline(lines, line);) {
    const size_t code = line.find_first_not_of(' ');
    if (code == std::string::npos) continue;
    const size_t blank = line.find(' ', code);
    const std::string value = blank == std::string::npos ? "" : line.substr(blank + 1);
    bytes += line.substr(code, blank - code) + lineEnd + value + lineEnd;
  }
  return bytes;
}

TemporaryFile::TemporaryFile(const std::string& bytes) : path(FreshPath()) {
  std::FILE* file = std::fopen(path.c_str(), "wb");
  if (!file) throw std::runtime_error("can't create " + path);
  const size_t written = std::fwrite(bytes.data(), 1, bytes.size(), file);
  if (std::fclose(file) != 0 || written != bytes.size()) throw std::runtime_error("can't write " + path);
}

TemporaryFile::~TemporaryFile() {
  std::remove(path.c_str());
}

std::string TemporaryFile::LongPath() const {
  const std::filesystem::path file(path);
  std::string longPath = file.parent_path().string();
  while (longPath.size() < 260) longPath += "/.";
  return longPath + "/" + file.filename().string();
}

std::string TemporaryFolder() {
  return std::filesystem::temp_directory_path().string();
}

std::string MissingPath() {
  return FreshPath();
}

}  // namespace hexlume
