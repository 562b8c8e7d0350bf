// Files that are written whole or not at all.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace hexlume {

// Contains the name of the output that can't be written, and the reason.
struct OutputError : std::runtime_error {
  OutputError(const std::string& output, const std::string& reason)
      : std::runtime_error(output + ": can't be written: " + reason) {}
};

// Writes a file beside the one of this name and renames it, so that after any failure, also the end of the process, the
// earlier file or the whole new one is there. A pipe or a device is written directly. All functions throw OutputError.
class WholeFile {
 public:
  explicit WholeFile(const std::string& path);

  // Removes what was written, unless it was committed.
  ~WholeFile();
  WholeFile(const WholeFile&) = delete;
  WholeFile& operator=(const WholeFile&) = delete;

  void Write(const void* bytes, size_t size);

  // Only on Windows: lets a function write the whole file, of this size, by its path. False if it isn't written so; it can be
  // written by Write then.
  bool FillBy(const std::function<bool(const wchar_t* path)>& fill, size_t size);

  // Gives the file its name. Nothing may be written after it.
  void Commit();

 private:
  struct Target;
  std::unique_ptr<Target> target;
};

void WriteWholeFile(const std::string& path, const std::vector<uint8_t>& bytes);

// Removes from a folder what a process that has been ended left in the middle of a file.
void RemoveLeftovers(const std::string& folder);

void WriteToStandardOutput(const void* bytes, size_t size);
void WriteToStandardOutput(const std::string& text);

// From now on standard output is collected in a text, which the process that started this one writes. nullptr ends it.
void CollectStandardOutput(std::string* text);

}  // namespace hexlume
