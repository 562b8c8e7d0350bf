// SQLite, as far as a plan needs it. All functions throw FolderError for a file that can't be read, OutputError for one that
// can't be written, and std::bad_alloc.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <memory>
#include <string>

namespace hexlume::batch {

class Database;

// A statement with its values, which are numbered from 1, and its row, whose columns are numbered from 0.
class Statement {
 public:
  Statement(Database& database, const std::string& sql);

  Statement& Bind(int place, int64_t number);
  Statement& Bind(int place, const std::string& bytes);
  Statement& BindNull(int place);

  // Goes to the next row. False after the last one.
  bool Next();

  // Runs the statement once and makes it ready for other values.
  void Run();

  int64_t Number(int column) const;
  std::string Bytes(int column) const;

 private:
  void Check(int result);

  struct Finalize {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
  };
  Database& database;
  std::unique_ptr<sqlite3_stmt, Finalize> statement;
};

class Database {
 public:
  enum class Use {
    make,  // a new file, or one that nobody else uses
    read,  // a file that is never written: without locks, which network file systems often lack
  };

  Database(const std::string& path, Use use);

  void Run(const std::string& sql);

 private:
  friend class Statement;
  [[noreturn]] void Fail() const;

  struct Close {
    void operator()(sqlite3* opened) const { sqlite3_close(opened); }
  };
  std::string path;
  bool makes;
  std::unique_ptr<sqlite3, Close> handle;
};

}  // namespace hexlume::batch
