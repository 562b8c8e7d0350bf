#include "tools/hexlume/file_trouble.h"

#include <cstdint>
#include <fstream>
#include <vector>

#include "tools/hexlume/system.h"

namespace hexlume {
namespace {

constexpr uint64_t largestText = 0x7FFFFFFF;  // the library counts bytes in an int32
constexpr char endOfText = 0x1A;

bool IsBinaryDxf(const std::string& start) {
  constexpr char sentinel[] = "AutoCAD Binary DXF\r\n\x1A";
  return start == std::string(sentinel, sizeof sentinel);  // with the terminating 0
}

bool IsDigit(char character) {
  return character >= '0' && character <= '9';
}

bool IsDwg(const std::string& start) {
  return start.size() >= 6 && start.compare(0, 4, "AC10") == 0 && IsDigit(start[4]) && IsDigit(start[5]);
}

// Returns the first bytes, as many as the sentinel of a binary DXF has.
std::string StartOf(std::istream& file) {
  std::string start(22, '\0');
  file.read(start.data(), static_cast<std::streamsize>(start.size()));
  start.resize(static_cast<size_t>(file.gcount()));
  return start;
}

// Searches for the name of the ENTITIES section, which is the value of a group 2.
class EntitiesSearch {
 public:
  // Returns false when the search is over.
  bool Take(char byte) {
    if (byte == endOfText) return false;
    if (byte == '\n') return EndLine();
    if (length < sizeof line) line[length] = byte;
    ++length;
    return true;
  }

  bool EndLine() {
    std::string text(line, length <= sizeof line ? length : 0);
    if (!text.empty() && text.back() == '\r') text.pop_back();
    found = afterCode2 && text == "ENTITIES";
    const size_t first = text.find_first_not_of(" \t");
    afterCode2 =
        first != std::string::npos && text.substr(first, text.find_last_not_of(" \t") + 1 - first) == "2";
    length = 0;
    return !found;
  }

  bool Found() const { return found; }

 private:
  char line[32] = {};  // longer lines can't match
  size_t length = 0;
  bool afterCode2 = false;
  bool found = false;
};

bool HasEntities(std::istream& file) {
  EntitiesSearch search;
  std::vector<char> chunk(1 << 16);
  while (file.read(chunk.data(), static_cast<std::streamsize>(chunk.size())), file.gcount() > 0) {
    for (std::streamsize i = 0; i < file.gcount(); ++i) {
      if (!search.Take(chunk[static_cast<size_t>(i)])) return search.Found();
    }
  }
  search.EndLine();
  return search.Found();
}

}  // namespace

std::optional<std::string> TroubleWith(const std::string& path, bool gaveNoDrawing) {
  const std::optional<uint64_t> size = FileSize(path);
  std::ifstream file(path, std::ios::binary);
  if (!size || !file) return std::nullopt;
  if (*size == 0) return "the file is empty";
  const std::string start = StartOf(file);
  if (IsBinaryDxf(start)) return "the file is a binary DXF; only an ASCII DXF can be converted";
  if (IsDwg(start)) return "the file is a DWG; only an ASCII DXF can be converted";
  if (*size > largestText) return "the file is larger than 2 GB; what is beyond isn't read";
  if (!gaveNoDrawing) return std::nullopt;
  file.clear();
  file.seekg(0);
  if (HasEntities(file)) return std::nullopt;
  return "the file has no ENTITIES section, so there is nothing to draw";
}

}  // namespace hexlume
