#include "tools/hexlume/system/path_text.h"

#include "tools/hexlume/system/system.h"

namespace hexlume {
namespace {

// Where the extension begins; npos without one.
size_t ExtensionStart(const std::string& path) {
  const size_t point = path.rfind('.');
  return point != std::string::npos && point > FileNameStart(path) ? point : std::string::npos;
}

}  // namespace

std::string WithExtension(const std::string& path, const std::string& extension) {
  return path.substr(0, ExtensionStart(path)) + extension;
}

std::string ExtensionOf(const std::string& path) {
  const size_t start = ExtensionStart(path);
  std::string extension = start == std::string::npos ? "" : path.substr(start);
  for (char& letter : extension)
    if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
  return extension;
}

std::string Joined(const std::string& folder, const std::string& name) {
  const bool isOpen = FileNameStart(folder) < folder.size();
  return isOpen ? folder + '/' + name : folder + name;
}

std::string FolderOf(const std::string& path) {
  const size_t start = FileNameStart(path);
  if (start == 0) return ".";
  return start == 1 ? path.substr(0, 1) : path.substr(0, start - 1);
}

std::string Upper(std::string text) {
  for (char& letter : text)
    if (letter >= 'a' && letter <= 'z') letter = static_cast<char>(letter - 'a' + 'A');
  return text;
}

}  // namespace hexlume
