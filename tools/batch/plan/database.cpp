#include "tools/batch/plan/database.h"

#include <new>

#include "tools/batch/base/error.h"
#include "tools/batch/base/text.h"
#include "tools/hexlume/system/file_output.h"

namespace hexlume::batch {

Statement::Statement(Database& opened, const std::string& sql) : database(opened) {
  sqlite3_stmt* made = nullptr;
  Check(sqlite3_prepare_v2(database.handle.get(), sql.c_str(), -1, &made, nullptr));
  statement.reset(made);
}

void Statement::Check(int result) {
  if (result != SQLITE_OK) database.Fail();
}

Statement& Statement::Bind(int place, int64_t number) {
  Check(sqlite3_bind_int64(statement.get(), place, number));
  return *this;
}

// Names of files are bytes, not texts.
Statement& Statement::Bind(int place, const std::string& bytes) {
  Check(sqlite3_bind_blob64(statement.get(), place, bytes.data(), bytes.size(), SQLITE_TRANSIENT));
  return *this;
}

Statement& Statement::BindNull(int place) {
  Check(sqlite3_bind_null(statement.get(), place));
  return *this;
}

bool Statement::Next() {
  const int result = sqlite3_step(statement.get());
  if (result == SQLITE_ROW) return true;
  if (result != SQLITE_DONE) database.Fail();
  return false;
}

void Statement::Run() {
  while (Next()) {
  }
  Check(sqlite3_reset(statement.get()));
}

int64_t Statement::Number(int column) const {
  return sqlite3_column_int64(statement.get(), column);
}

std::string Statement::Bytes(int column) const {
  const auto* const bytes = static_cast<const char*>(sqlite3_column_blob(statement.get(), column));
  const auto size = static_cast<size_t>(sqlite3_column_bytes(statement.get(), column));
  return bytes ? std::string(bytes, size) : "";
}

Database::Database(const std::string& file, Use use) : path(file), makes(use == Use::make) {
  const int flags =
      SQLITE_OPEN_URI | (makes ? SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE : SQLITE_OPEN_READONLY);
  const std::string uri = "file:" + PercentEncoded(path) + (makes ? "" : "?immutable=1");
  sqlite3* opened = nullptr;
  const int result = sqlite3_open_v2(uri.c_str(), &opened, flags, nullptr);
  handle.reset(opened);
  if (result != SQLITE_OK) Fail();
  // The file gets its name only once it is whole.
  if (makes) Run("PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF");
}

void Database::Run(const std::string& sql) {
  if (sqlite3_exec(handle.get(), sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) Fail();
}

void Database::Fail() const {
  const int code = sqlite3_errcode(handle.get());
  if (code == SQLITE_NOMEM) throw std::bad_alloc();
  const bool isDamaged = code == SQLITE_CORRUPT || code == SQLITE_NOTADB;
  if (makes && !isDamaged) throw OutputError(path, sqlite3_errmsg(handle.get()));
  throw FolderError(path + ": " + sqlite3_errmsg(handle.get()));
}

}  // namespace hexlume::batch
