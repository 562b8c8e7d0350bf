#include "tools/hexlume/archive/job_plan.h"

#include <algorithm>
#include <set>
#include <unordered_map>
#include <unordered_set>

#include "tools/hexlume/archive/drawing_list.h"
#include "tools/hexlume/drawing/drawing_source.h"
#include "tools/hexlume/system/path_text.h"
#include "tools/hexlume/system/system.h"

namespace hexlume {
namespace {

std::string ExtensionFor(const PictureKind* kind) {
  return kind ? '.' + std::string(kind->option) : ".emf";
}

bool LooksLikeADrawing(const std::string& path) {
  return path != standardStream && PathKey(path) == PathKey(WithExtension(path, ".dxf"));
}

// The whole path as a place: without what is before its first name.
std::string LongPlace(const std::string& path) {
  std::string place;
  size_t start = 0;
  while (start < path.size()) {
    const size_t end = std::min(path.find_first_of(NamesIgnoreCase() ? "/\\:" : "/", start), path.size());
    const std::string name = path.substr(start, end - start);
    if (!name.empty() && name != "." && name != "..") place += (place.empty() ? "" : "/") + name;
    start = end + 1;
  }
  return place;
}

// Places that are tried one after the other until no two drawings have the same.
enum class PlaceForm { name, nameAndExtension, path, pathAndExtension, numbered, count };

std::string PlaceIn(PlaceForm form, const std::string& path, const std::string& shortPlace, size_t index) {
  switch (form) {
    case PlaceForm::name: return WithExtension(shortPlace, "");
    case PlaceForm::nameAndExtension: return shortPlace;
    case PlaceForm::path: return WithExtension(LongPlace(path), "");
    case PlaceForm::pathAndExtension: return LongPlace(path);
    default: return LongPlace(path) + '~' + std::to_string(index);
  }
}

void Claim(std::set<std::string>& taken, const std::string& output) {
  const std::string key = output == standardStream ? output : PathKey(output);
  if (!taken.insert(key).second) {
    throw UsageError(output == standardStream
                         ? "standard output takes one result only"
                         : "the output '" + output + "' is also a drawing or another output");
  }
}

}  // namespace

std::set<std::string> FoldersOf(const Job& job) {
  std::set<std::string> folders;
  for (const PictureOrder& output : job.outputs) folders.insert(FolderOf(output.file));
  return folders;
}

JobPlan::JobPlan(const Options& options) : hasPages(options.book), kinds(options.kinds) {
  if (options.inputs.empty() && !options.filesFrom) throw UsageError("no drawing is given");
  if (options.folder || options.book)
    PlanMany(options);
  else
    PlanSingle(options);
}

JobPlan::JobPlan(const Options& options, std::vector<PlacedDrawing> placed)
    : drawings(std::move(placed)), isMany(true), folder(*options.folder), kinds(options.kinds) {}

Job JobPlan::JobOf(size_t index) const {
  const PlacedDrawing& drawing = drawings[index];
  if (folder.empty()) return {drawing.path, singleOutputs, {}, hasPages};
  Job job = {drawing.path, {}, {}, hasPages};
  for (const PictureKind* const kind : kinds)
    job.outputs.push_back({kind, Joined(folder, drawing.place) + ExtensionFor(kind)});
  return job;
}

void JobPlan::AddDrawings(const Options& options) {
  DrawingList list = ListDrawings(options);
  isMany = list.isMany || list.drawings.size() > 1;
  if (isMany && !options.pictures.empty())
    throw UsageError("--" + std::string(options.pictures.front().kind->option) +
                     " takes a single drawing; --to " + options.pictures.front().kind->option +
                     " takes many");
  unreadableFolders = std::move(list.unreadableFolders);
  for (ListedDrawing& drawing : list.drawings) {
    if (options.folder && drawing.path == standardStream)
      throw UsageError("standard input has no name for a file in a folder");
    std::string place = drawing.path.substr(drawing.placeStart);
    drawings.push_back({std::move(drawing.path), std::move(place)});
  }
  SettlePlaces();
}

void JobPlan::PlanMany(const Options& options) {
  if (!options.folder && !kinds.empty()) throw UsageError("--to and --pdf-book together need -d DIR");
  folder = options.folder.value_or("");
  if (kinds.empty()) kinds = {nullptr};
  AddDrawings(options);
  CheckFolder();
  if (options.book) CheckBook(options);
  if (options.report && LooksLikeADrawing(*options.report))
    throw UsageError("the report '" + *options.report + "' looks like a drawing");
  const bool isReportPrinted = options.report == standardStream,
             isBookPrinted = options.book == standardStream;
  if (isReportPrinted + isBookPrinted + options.list > 1)
    throw UsageError("standard output takes one result only");
  // Named beside those in the folder.
  if (!options.pictures.empty()) {
    singleOutputs = JobOf(0).outputs;
    singleOutputs.insert(singleOutputs.end(), options.pictures.begin(), options.pictures.end());
    folder.clear();
    std::set<std::string> taken = {PathKey(drawings[0].path)};
    if (options.book) Claim(taken, *options.book);
    for (const PictureOrder& output : singleOutputs) Claim(taken, output.file);
  }
}

void JobPlan::SettlePlaces() {
  std::vector<std::string> shortPlaces;
  for (const PlacedDrawing& drawing : drawings) shortPlaces.push_back(drawing.place);
  std::vector<PlaceForm> forms(drawings.size(), PlaceForm::name);
  for (size_t i = 0; i < drawings.size(); ++i)
    drawings[i].place = PlaceIn(forms[i], drawings[i].path, shortPlaces[i], i);
  for (int round = 0; round < static_cast<int>(PlaceForm::count); ++round) {
    std::unordered_map<size_t, size_t>
        counts;  // of the numbers of places; the same number is as the same place
    const auto number = [this](size_t i) { return std::hash<std::string>()(Upper(drawings[i].place)); };
    for (size_t i = 0; i < drawings.size(); ++i) ++counts[number(i)];
    if (counts.size() == drawings.size()) return;
    for (size_t i = 0; i < drawings.size(); ++i) {
      if (counts[number(i)] < 2 || forms[i] == PlaceForm::numbered) continue;
      forms[i] = static_cast<PlaceForm>(static_cast<int>(forms[i]) + 1);
      drawings[i].place = PlaceIn(forms[i], drawings[i].path, shortPlaces[i], i);
    }
  }
}

// The book may neither be a drawing nor another result.
void JobPlan::CheckBook(const Options& options) const {
  const std::string& book = *options.book;
  if (book == standardStream) return;
  const std::string key = PathKey(book);
  if (options.report && *options.report != standardStream && PathKey(*options.report) == key)
    throw UsageError("the output '" + book + "' is also the report");
  for (size_t i = 0; i < drawings.size(); ++i) {
    bool isTaken = drawings[i].path != standardStream && PathKey(drawings[i].path) == key;
    for (const PictureOrder& output : JobOf(i).outputs)
      isTaken = isTaken || (ExtensionOf(output.file) == ExtensionOf(book) && PathKey(output.file) == key);
    if (isTaken) throw UsageError("the output '" + book + "' is also a drawing or another output");
  }
}

// No result in the folder may be a drawing.
void JobPlan::CheckFolder() const {
  if (folder.empty()) return;
  std::unordered_set<std::string> endangered;
  for (const PlacedDrawing& drawing : drawings)
    for (const PictureKind* const kind : kinds)
      if (ExtensionOf(drawing.path) == ExtensionFor(kind)) endangered.insert(PathKey(drawing.path));
  if (endangered.empty()) return;
  for (size_t i = 0; i < drawings.size(); ++i)
    for (const PictureKind* const kind : kinds) {
      const std::string output = Joined(folder, drawings[i].place) + ExtensionFor(kind);
      if (endangered.count(PathKey(output)) > 0)
        throw UsageError("the output '" + output + "' is also a drawing or another output");
    }
}

void JobPlan::PlanSingle(const Options& options) {
  if (options.filesFrom) throw UsageError("several drawings need -d DIR");
  std::vector<std::string> files = options.inputs;
  // A wildcard can match one file.
  Options first = options;
  if (!files.empty()) first.inputs = {files[0]};
  const DrawingList list = ListDrawings(first);
  if (files.size() > 2 || list.drawings.size() != 1 || !list.unreadableFolders.empty())
    throw UsageError("several drawings need -d DIR");
  const std::string& drawing = list.drawings[0].path;
  drawings.push_back({drawing, ""});
  if (files.size() == 2) {
    // Probably two drawings without -d. The second one must not be overwritten.
    if (LooksLikeADrawing(files[1]))
      throw UsageError("the output '" + files[1] + "' looks like a drawing; several drawings need -d DIR");
    if (!kinds.empty())
      throw UsageError("--to names the results after the drawing; an OUTPUT can't be given");
    singleOutputs.push_back({nullptr, files[1]});
  } else if (!kinds.empty()) {
    if (IsStream(drawing))
      throw UsageError("--to names the results after the drawing, and a pipe has no name");
    for (const PictureKind* const kind : kinds)
      singleOutputs.push_back({kind, WithExtension(drawing, ExtensionFor(kind))});
  } else if (!options.list && options.pictures.empty()) {
    singleOutputs.push_back({nullptr, IsStream(drawing) ? standardStream : WithExtension(drawing, ".emf")});
  }
  singleOutputs.insert(singleOutputs.end(), options.pictures.begin(), options.pictures.end());
  std::set<std::string> taken;
  if (!IsStream(drawing)) taken.insert(PathKey(drawing));
  if (options.list) taken.insert(standardStream);
  if (options.report) Claim(taken, *options.report);
  for (const PictureOrder& output : singleOutputs) Claim(taken, output.file);
}

}  // namespace hexlume
