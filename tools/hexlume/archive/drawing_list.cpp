#include "tools/hexlume/archive/drawing_list.h"

#include <algorithm>
#include <functional>

#include "tools/hexlume/archive/wildcard.h"
#include "tools/hexlume/drawing/drawing_source.h"
#include "tools/hexlume/system/path_text.h"
#include "tools/hexlume/system/system.h"

namespace hexlume {
namespace {

class Lister {
 public:
  Lister(const Options& asked, DrawingList& filled) : options(asked), list(filled) {}

  void AddArgument(const std::string& argument) {
    const auto stamp = argument == standardStream ? std::nullopt : StampOf(argument);
    if (!stamp && HasWildcard(argument)) return AddMatches(argument);
    Add(argument, stamp);
  }

  void AddListed(const std::string& path) { Add(path, StampOf(path)); }

 private:
  void AddMatches(const std::string& pattern) {
    list.isMany = true;
    const std::vector<std::string> matches = ExpandWildcards(pattern);
    if (matches.empty()) AddFile(pattern);
    for (const std::string& match : matches) Add(match, StampOf(match));
  }

  void Add(const std::string& path, const std::optional<FileStamp>& stamp) {
    if (!options.recursive || !stamp || stamp->kind != FileKind::folder) return AddFile(path);
    list.isMany = true;
    Walk(path, Joined(path, "").size());
  }

  void AddFile(const std::string& path) { list.drawings.push_back({path, FileNameStart(path)}); }

  void Walk(const std::string& folder, size_t placeStart) {
    auto entries = EntriesOf(folder);
    if (!entries) {
      list.unreadableFolders.push_back(folder);
      return;
    }
    std::sort(entries->begin(), entries->end(),
              [](const FolderEntry& one, const FolderEntry& other) { return one.name < other.name; });
    for (const FolderEntry& entry : *entries) {
      const std::string path = Joined(folder, entry.name);
      if (entry.kind == FileKind::folder) Walk(path, placeStart);
      if (entry.kind == FileKind::file && ExtensionOf(entry.name) == ".dxf")
        list.drawings.push_back({path, placeStart});
    }
  }

  const Options& options;
  DrawingList& list;
};

std::string TextOfList(const std::string& name) {
  const bool isStandard = name == standardStream;
  const File file = isStandard ? nullptr : OpenFile(name, "rb");
  std::FILE* const stream = isStandard ? PlainStandardInput() : file.get();
  if (!stream) throw UsageError("the list of --files-from can't be read: " + name);
  std::string text;
  char chunk[65536];
  while (const size_t got = std::fread(chunk, 1, sizeof chunk, stream)) text.append(chunk, got);
  if (std::ferror(stream)) throw UsageError("the list of --files-from can't be read: " + name);
  return text;
}

void AddList(const std::string& name, bool nullSeparated, Lister& lister) {
  const std::string text = TextOfList(name);
  const char separator = nullSeparated ? '\0' : '\n';
  size_t start = 0;
  while (start < text.size()) {
    const size_t end = std::min(text.find(separator, start), text.size());
    std::string path = text.substr(start, end - start);
    if (!nullSeparated && !path.empty() && path.back() == '\r') path.pop_back();
    if (!path.empty()) lister.AddListed(path);
    start = end + 1;
  }
}

std::string KeyOf(const std::string& path) {
  const std::string absolute = AbsolutePath(path);
  return NamesIgnoreCase() ? PathKey(absolute) : absolute;
}

// Keeps the first of several paths of one file. Millions of paths are compared by numbers first.
void RemoveRepeated(std::vector<ListedDrawing>& drawings) {
  std::vector<std::pair<size_t, size_t>> order;  // number of a path, index
  for (size_t i = 0; i < drawings.size(); ++i)
    order.emplace_back(std::hash<std::string>()(KeyOf(drawings[i].path)), i);
  std::sort(order.begin(), order.end());
  size_t first = 0;  // in the order
  for (size_t i = 1; i < order.size(); ++i) {
    ListedDrawing& drawing = drawings[order[i].second];
    if (order[i].first == order[first].first &&
        KeyOf(drawing.path) == KeyOf(drawings[order[first].second].path))
      drawing.placeStart = std::string::npos;
    else
      first = i;
  }
  const auto isRepeated = [](const ListedDrawing& drawing) {
    return drawing.placeStart == std::string::npos;
  };
  drawings.erase(std::remove_if(drawings.begin(), drawings.end(), isRepeated), drawings.end());
}

}  // namespace

DrawingList ListDrawings(const Options& options) {
  DrawingList list;
  Lister lister(options, list);
  for (const std::string& input : options.inputs) lister.AddArgument(input);
  if (options.filesFrom) {
    list.isMany = true;
    AddList(*options.filesFrom, options.nullSeparated, lister);
  }
  RemoveRepeated(list.drawings);
  return list;
}

}  // namespace hexlume
