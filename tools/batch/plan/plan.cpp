#include "tools/batch/plan/plan.h"

#include <unistd.h>

#include <filesystem>

#include "tools/batch/base/error.h"
#include "tools/batch/plan/file_hash.h"
#include "tools/batch/plan/folder.h"
#include "tools/hexlume/system/file_output.h"
#include "tools/hexlume/system/sha256.h"
#include "tools/hexlume/system/system.h"

namespace hexlume::batch {
namespace {

// Of the tables.
constexpr const char* form = "1";

constexpr const char* tables = R"(
CREATE TABLE setting (name TEXT PRIMARY KEY, value BLOB NOT NULL);
CREATE TABLE chunk (number INTEGER PRIMARY KEY, first INTEGER NOT NULL, drawings INTEGER NOT NULL,
                    bytes INTEGER NOT NULL);
CREATE TABLE drawing (number INTEGER PRIMARY KEY, path BLOB NOT NULL, place BLOB NOT NULL,
                      size INTEGER NOT NULL, modified INTEGER NOT NULL, sha256 BLOB);
)";

// Each ends with a byte 0, which no argument can have.
std::string Packed(const std::vector<std::string>& arguments) {
  std::string bytes;
  for (const std::string& argument : arguments) bytes += argument + '\0';
  return bytes;
}

std::vector<std::string> Unpacked(const std::string& bytes) {
  std::vector<std::string> arguments;
  size_t start = 0;
  for (size_t end = bytes.find('\0'); end != std::string::npos; end = bytes.find('\0', start)) {
    arguments.push_back(bytes.substr(start, end - start));
    start = end + 1;
  }
  return arguments;
}

void SetSetting(Database& database, const std::string& name, const std::string& value) {
  Statement(database, "INSERT OR REPLACE INTO setting VALUES ('" + name + "', ?)").Bind(1, value).Run();
}

std::string SettingOf(Database& database, const std::string& name) {
  Statement statement(database, "SELECT value FROM setting WHERE name = '" + name + "'");
  return statement.Next() ? statement.Bytes(0) : "";
}

// Through the cache of the system: a plan can have hundreds of megabytes.
void CopyFile(const std::string& from, const std::string& to) {
  std::error_code error;
  std::filesystem::copy_file(from, to, std::filesystem::copy_options::overwrite_existing, error);
  if (error) throw OutputError(to, error.message());
}

}  // namespace

Plan::Plan(const std::string& given) : folder(given) {
  const std::string path = PlanPath(folder);
  if (!StampOf(path)) throw FolderError(folder + ": there is no plan; hexlume-batch plan makes one");
  Database database(path, Database::Use::read);
  ReadSettings(database);
  ReadChunks(database);
}

void Plan::ReadSettings(Database& database) {
  if (SettingOf(database, "form") != form)
    throw FolderError(PlanPath(folder) + ": this isn't a plan that this version can read");
  version = SettingOf(database, "version");
  settings.arguments = Unpacked(SettingOf(database, "arguments"));
  settings.hasContents = SettingOf(database, "contents") == "1";
}

void Plan::ReadChunks(Database& database) {
  Statement rows(database, "SELECT number, first, drawings, bytes FROM chunk ORDER BY number");
  while (rows.Next()) chunks.push_back({rows.Number(0), rows.Number(1), rows.Number(2), rows.Number(3)});
}

int64_t Plan::DrawingCount() const {
  return chunks.empty() ? 0 : chunks.back().first + chunks.back().drawings - 1;
}

const PlannedChunk& Plan::ChunkOf(int64_t number) const {
  if (number < 1 || number > static_cast<int64_t>(chunks.size()))
    throw FolderError(folder + ": the plan has no chunk " + std::to_string(number) + ", only 1 to " +
                      std::to_string(chunks.size()));
  return chunks[static_cast<size_t>(number - 1)];
}

std::vector<PlannedDrawing> Plan::DrawingsOf(const PlannedChunk& chunk) const {
  Database database(PlanPath(folder), Database::Use::read);
  Statement rows(
      database,
      "SELECT number, path, place, size, modified, sha256 FROM drawing WHERE number >= ? AND number "
      "< ? ORDER BY number");
  rows.Bind(1, chunk.first).Bind(2, chunk.first + chunk.drawings);
  std::vector<PlannedDrawing> drawings;
  while (rows.Next())
    drawings.push_back(
        {rows.Number(0), rows.Bytes(1), rows.Bytes(2), rows.Number(3), rows.Number(4), rows.Bytes(5)});
  return drawings;
}

std::vector<std::string> Plan::WorkerArguments() const {
  std::vector<std::string> arguments = settings.arguments;
  arguments.insert(arguments.end(), {"-d", outputsName});
  if (settings.hasContents) arguments.insert(arguments.end(), {"--report", "-"});
  return arguments;
}

std::vector<std::string> Plan::Kinds() const {
  std::vector<std::string> kinds;
  for (const PictureKind* const kind : ParseOptions(WorkerArguments()).kinds)
    kinds.push_back(kind ? kind->option : "emf");
  return kinds;
}

std::string Plan::Key() const {
  constexpr size_t length = 16;
  const std::string contents = settings.hasContents ? "\ncontents" : "";
  return Sha256(ResultKey(ParseOptions(WorkerArguments())) + contents).substr(0, length);
}

void Plan::CheckVersion() const {
  if (version == HEXLUME_VERSION) return;
  throw FolderError(folder + ": hexlume-batch " + version +
                    " has made the plan, and this is " HEXLUME_VERSION
                    "; use that version on all machines, or convert all drawings again with "
                    "hexlume-batch retry --all");
}

PlanWriter::PlanWriter(const std::string& folder, const PlanSettings& settings, int64_t size)
    : path(PlanPath(folder)), temporary(TemporaryPath(path)), chunkSize(size) {
  unlink(temporary.c_str());
  database = std::make_unique<Database>(temporary, Database::Use::make);
  database->Run(tables);
  database->Run("BEGIN");
  SetSetting(*database, "form", form);
  SetSettings(*database, settings);
  drawingRow = std::make_unique<Statement>(*database, "INSERT INTO drawing VALUES (?, ?, ?, ?, ?, ?)");
  chunkRow = std::make_unique<Statement>(*database, "INSERT INTO chunk VALUES (?, ?, ?, ?)");
}

PlanWriter::~PlanWriter() {
  if (database) unlink(temporary.c_str());
}

void PlanWriter::Add(const PlannedDrawing& drawing) {
  if (chunk.drawings == chunkSize) EndChunk();
  if (chunk.drawings == 0) chunk = {chunk.number + 1, drawings + 1, 0, 0};
  ++drawings;
  ++chunk.drawings;
  chunk.bytes += std::max<int64_t>(drawing.size, 0);
  drawingRow->Bind(1, drawings).Bind(2, drawing.path).Bind(3, drawing.place).Bind(4, drawing.size);
  drawingRow->Bind(5, drawing.modified);
  if (drawing.sha256.empty())
    drawingRow->BindNull(6);
  else
    drawingRow->Bind(6, drawing.sha256);
  drawingRow->Run();
}

void PlanWriter::EndChunk() {
  if (chunk.drawings == 0) return;
  chunkRow->Bind(1, chunk.number).Bind(2, chunk.first).Bind(3, chunk.drawings).Bind(4, chunk.bytes).Run();
  chunk.drawings = 0;
}

void PlanWriter::Finish() {
  EndChunk();
  database->Run("COMMIT");
  drawingRow.reset();
  chunkRow.reset();
  database.reset();
  RenameWhole(temporary, path);
}

void ChangePlan(const std::string& folder, const std::function<void(Database&)>& change) {
  const std::string path = PlanPath(folder), temporary = TemporaryPath(path);
  try {
    CopyFile(path, temporary);
    {
      Database database(temporary, Database::Use::make);
      database.Run("BEGIN");
      change(database);
      database.Run("COMMIT");
    }
    RenameWhole(temporary, path);
  } catch (...) {
    unlink(temporary.c_str());
    throw;
  }
}

void SetDrawing(Database& database, const PlannedDrawing& drawing) {
  Statement row(database, "UPDATE drawing SET size = ?, modified = ?, sha256 = ? WHERE number = ?");
  row.Bind(1, drawing.size).Bind(2, drawing.modified).Bind(4, drawing.number);
  if (drawing.sha256.empty())
    row.BindNull(3);
  else
    row.Bind(3, drawing.sha256);
  row.Run();
}

void SetSettings(Database& database, const PlanSettings& settings) {
  SetSetting(database, "version", HEXLUME_VERSION);
  SetSetting(database, "arguments", Packed(settings.arguments));
  SetSetting(database, "contents", settings.hasContents ? "1" : "0");
}

void LookAt(PlannedDrawing& drawing, bool isHashed) {
  const auto stamp = StampOf(drawing.path);
  drawing.size = stamp ? stamp->size : -1;
  drawing.modified = stamp ? stamp->modified : 0;
  const bool isFile = stamp && stamp->kind == FileKind::file;
  drawing.sha256 = isFile && isHashed ? HashOfFile(drawing.path).value_or("") : "";
}

}  // namespace hexlume::batch
