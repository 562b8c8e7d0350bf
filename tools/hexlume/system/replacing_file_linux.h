// A file that is written under another name, or without one, and replaces the one of its name when it is whole.
#pragma once

#include <string>

namespace hexlume {

// The beginning of the names of files that this machine has begun. The number of the process follows, and a hyphen.
std::string TemporaryPrefix();

// All functions throw OutputError.
class ReplacingFile {
 public:
  // Is beside the file, under a name that RemoveLeftovers knows. A pipe or a device is opened itself.
  static ReplacingFile Named(const std::string& path);

  // Has no name where the file system can do that, so that it is gone with the process, whatever ends it. Can be read too.
  // Not for a pipe or a device.
  static ReplacingFile Nameless(const std::string& path);

  // Removes what was written, unless it was committed.
  ~ReplacingFile();
  ReplacingFile(const ReplacingFile&) = delete;
  ReplacingFile& operator=(const ReplacingFile&) = delete;

  const std::string& Path() const { return path; }
  int Descriptor() const { return descriptor; }

  // Gives the file its name.
  void Commit();

 private:
  ReplacingFile(const std::string& given, bool isNameless);
  std::string Folder() const;
  void OpenNameless();
  void OpenNamed();
  void TakeName();

  std::string path;       // as the user gave it
  std::string final;      // after links; empty for a pipe or a device
  std::string temporary;  // empty while the file has no name, and once it is committed
  int descriptor = -1;
};

}  // namespace hexlume
