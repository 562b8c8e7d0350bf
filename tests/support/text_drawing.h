// Drawings written as literals in a test.
#pragma once

#include <string>

namespace hexlume {

// Returns the bytes of a drawing: each line of groups contains a code, one blank and a value, and becomes two
// lines. Blanks before the code and blank lines are ignored. The value is taken unchanged after the one
// blank; a code alone has an empty value.
std::string DrawingBytes(const std::string& groups, const std::string& lineEnd = "\n");

// A file with these bytes, deleted by the destructor.
class TemporaryFile {
 public:
  explicit TemporaryFile(const std::string& bytes);
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile();

  const char* Path() const { return path.c_str(); }
  // The same file by a path of at least 260 bytes, which is too long to be stored.
  std::string LongPath() const;

 private:
  std::string path;
};

// A file with these groups.
class TemporaryDrawing : public TemporaryFile {
 public:
  explicit TemporaryDrawing(const std::string& groups) : TemporaryFile(DrawingBytes(groups)) {}
};

// The folder of these files, and the path of a file that doesn't exist.
std::string TemporaryFolder();
std::string MissingPath();

}  // namespace hexlume
