// Drawings written out in a test.
#pragma once

#include <string>

namespace hexlume {

// The bytes of a drawing: each line of groups holds a code, one blank and a value, and becomes two lines.
// Blanks in front of the code and lines with nothing else on them don't count; what follows the one blank is
// the value as it stands, so that a code alone has an empty value.
std::string DrawingBytes(const std::string& groups, const std::string& lineEnd = "\n");

// A file of these bytes, deleted with the object.
class TemporaryFile {
 public:
  explicit TemporaryFile(const std::string& bytes);
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile();

  const char* Path() const { return path.c_str(); }
  // The same file by a path of at least 260 bytes, too long to be saved.
  std::string LongPath() const;

 private:
  std::string path;
};

// The same for a drawing told by its groups.
class TemporaryDrawing : public TemporaryFile {
 public:
  explicit TemporaryDrawing(const std::string& groups) : TemporaryFile(DrawingBytes(groups)) {}
};

// The folder of these files, and a file that isn't there.
std::string TemporaryFolder();
std::string MissingPath();

}  // namespace hexlume
