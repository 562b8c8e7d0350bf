// Which drawings are converted to which files.
#pragma once

#include <optional>
#include <set>
#include <string>
#include <vector>

#include "tools/hexlume/command/options.h"

namespace hexlume {

// A drawing and its results: none if only a listing is wanted.
struct Job {
  std::string drawing;
  std::vector<PictureOrder> outputs;
  std::optional<std::string> bytes;  // of a pipe, if another process has read it
  bool hasPage = false;              // in a book that the tool's first process writes
};

// Of its results.
std::set<std::string> FoldersOf(const Job& job);

// A drawing and the place of its results below the folder, without an extension.
struct PlacedDrawing {
  std::string path;
  std::string place;
};

class JobPlan {
 public:
  // Throws UsageError.
  explicit JobPlan(const Options& options);

  // Drawings whose places are settled. The options have a folder.
  JobPlan(const Options& options, std::vector<PlacedDrawing> placed);

  size_t Count() const { return drawings.size(); }
  Job JobOf(size_t index) const;

  // Below the folder of -d, or the title of a page: without an extension, and the same for the same drawings.
  const std::string& PlaceOf(size_t index) const { return drawings[index].place; }
  const std::string& DrawingOf(size_t index) const { return drawings[index].path; }

  bool HasManyInputs() const { return isMany; }
  const std::vector<std::string>& UnreadableFolders() const { return unreadableFolders; }

 private:
  void PlanMany(const Options& options);
  void AddDrawings(const Options& options);
  void PlanSingle(const Options& options);
  void SettlePlaces();
  void CheckFolder() const;
  void CheckBook(const Options& options) const;

  std::vector<PlacedDrawing> drawings;
  std::vector<std::string> unreadableFolders;
  bool isMany = false, hasPages = false;
  std::vector<PictureOrder> singleOutputs;
  std::string folder;
  std::vector<const PictureKind*> kinds;
};

}  // namespace hexlume
