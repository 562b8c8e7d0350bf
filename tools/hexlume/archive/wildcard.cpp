#include "tools/hexlume/archive/wildcard.h"

#include <algorithm>

#include "tools/hexlume/system/path_text.h"
#include "tools/hexlume/system/system.h"

namespace hexlume {
namespace {

constexpr const char* wildcards = "*?";

bool IsSeparator(char letter) {
  return FileNameStart(std::string(1, letter)) == 1 && letter != ':';
}

bool Continues(char byte) {
  return (byte & 0xC0) == 0x80;
}

// The index after the character at an index.
size_t NextCharacter(const std::string& text, size_t at) {
  ++at;
  while (at < text.size() && Continues(text[at])) ++at;
  return at;
}

bool Matches(const std::string& name, const std::string& pattern) {
  size_t at = 0, in = 0;
  size_t star = std::string::npos, retry = 0;  // of the last * that was tried, and the name's index then
  while (at < name.size()) {
    if (in < pattern.size() && pattern[in] == '*') {
      star = in++;
      retry = at;
    } else if (in < pattern.size() && pattern[in] == '?') {
      ++in;
      at = NextCharacter(name, at);
    } else if (in < pattern.size() && pattern[in] == name[at]) {
      ++in;
      ++at;
    } else if (star != std::string::npos) {
      in = star + 1;
      at = retry = NextCharacter(name, retry);
    } else {
      return false;
    }
  }
  while (in < pattern.size() && pattern[in] == '*') ++in;
  return in == pattern.size();
}

bool IsHidden(const std::string& name, const std::string& pattern) {
  return name.compare(0, 1, ".") == 0 && pattern.compare(0, 1, ".") != 0;
}

// Expands the pattern's part from start on, after a folder with what separates it from the part.
void Expand(const std::string& folder, const std::string& pattern, size_t start,
            std::vector<std::string>& found) {
  size_t end = start;
  while (end < pattern.size() && !IsSeparator(pattern[end])) ++end;
  const std::string part = pattern.substr(start, end - start);
  const bool isLast = end == pattern.size();
  size_t next = end;
  while (next < pattern.size() && IsSeparator(pattern[next])) ++next;
  const std::string between = pattern.substr(end, next - end);
  if (!HasWildcard(part)) {
    const std::string path = folder + part;
    if (!isLast) return Expand(path + between, pattern, next, found);
    if (StampOf(path)) found.push_back(path);
    return;
  }
  const auto entries = EntriesOf(folder.empty() ? "." : folder);
  if (!entries) return;
  for (const FolderEntry& entry : *entries) {
    if (IsHidden(entry.name, part) || !MatchesWildcard(entry.name, part, NamesIgnoreCase())) continue;
    const std::string path = folder + entry.name;
    if (isLast)
      found.push_back(path);
    else if (entry.kind != FileKind::file)
      Expand(path + between, pattern, next, found);
  }
}

}  // namespace

bool HasWildcard(const std::string& path) {
  return path.find_first_of(wildcards) != std::string::npos;
}

bool MatchesWildcard(const std::string& name, const std::string& pattern, bool ignoreCase) {
  return ignoreCase ? Matches(Upper(name), Upper(pattern)) : Matches(name, pattern);
}

std::vector<std::string> ExpandWildcards(const std::string& pattern) {
  std::vector<std::string> found;
  size_t start = 0;
  while (start < pattern.size() && IsSeparator(pattern[start])) ++start;
  Expand(pattern.substr(0, start), pattern, start, found);
  std::sort(found.begin(), found.end());
  return found;
}

}  // namespace hexlume
