// The plan of a batch: the drawings, in chunks, and the options of their conversion.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "tools/batch/plan/database.h"
#include "tools/hexlume/command/options.h"

namespace hexlume::batch {

struct PlannedDrawing {
  int64_t number = 0;    // from 1 on, in the whole plan
  std::string path;      // from the root
  std::string place;     // of its outputs: without an extension, below their folder
  int64_t size = -1;     // -1: there was no such file
  int64_t modified = 0;  // in the system's own units
  std::string sha256;    // empty if the file couldn't be read or shouldn't be
};

struct PlannedChunk {
  int64_t number = 0;  // from 1 on
  int64_t first = 0;   // number of its first drawing; the others follow
  int64_t drawings = 0;
  int64_t bytes = 0;
};

struct PlanSettings {
  std::vector<std::string> arguments;  // options of the conversion and its limits, for hexlume
  bool hasContents = false;            // whether results have what is in the drawings
};

class Plan {
 public:
  // Throws FolderError if there is none, or one of another version.
  explicit Plan(const std::string& folder);

  const std::string& Folder() const { return folder; }
  const PlanSettings& Settings() const { return settings; }
  const std::vector<PlannedChunk>& Chunks() const { return chunks; }
  int64_t DrawingCount() const;

  // Throws FolderError if the plan has no such chunk.
  const PlannedChunk& ChunkOf(int64_t number) const;
  std::vector<PlannedDrawing> DrawingsOf(const PlannedChunk& chunk) const;

  // The options for the worker processes, whose current folder is that of the batch.
  std::vector<std::string> WorkerArguments() const;

  // The extensions of the outputs, without a point.
  std::vector<std::string> Kinds() const;

  // The same for results that are the same for the same drawing.
  std::string Key() const;

  // Throws FolderError if another version of the program has made the plan: its results would be others.
  void CheckVersion() const;

 private:
  void ReadSettings(Database& database);
  void ReadChunks(Database& database);

  std::string folder;
  std::string version;
  PlanSettings settings;
  std::vector<PlannedChunk> chunks;
};

// Makes a plan in a folder. A reader sees it once it is whole. Throws FolderError and OutputError.
class PlanWriter {
 public:
  PlanWriter(const std::string& folder, const PlanSettings& settings, int64_t chunkSize);

  // Removes what was written, unless it was finished.
  ~PlanWriter();
  PlanWriter(const PlanWriter&) = delete;
  PlanWriter& operator=(const PlanWriter&) = delete;

  // The drawings get their numbers here.
  void Add(const PlannedDrawing& drawing);
  void Finish();

  int64_t Drawings() const { return drawings; }
  int64_t Chunks() const { return chunk.number; }

 private:
  void EndChunk();

  std::string path, temporary;
  int64_t chunkSize, drawings = 0;
  PlannedChunk chunk;
  std::unique_ptr<Database> database;
  std::unique_ptr<Statement> drawingRow, chunkRow;
};

// Replaces a plan by a changed copy. Throws FolderError and OutputError.
void ChangePlan(const std::string& folder, const std::function<void(Database&)>& change);

// The drawing as it is now. Its number stays.
void SetDrawing(Database& database, const PlannedDrawing& drawing);

void SetSettings(Database& database, const PlanSettings& settings);

// Reads size, time and, if it is asked for, hash of the file.
void LookAt(PlannedDrawing& drawing, bool isHashed);

}  // namespace hexlume::batch
