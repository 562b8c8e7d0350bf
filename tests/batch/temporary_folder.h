#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

namespace hexlume::batch {

// A folder that the destructor removes.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "hexlume_batch_XXXXXX").string();
    if (mkdtemp(name.data())) path = name;
  }
  ~TemporaryFolder() { std::filesystem::remove_all(path); }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  std::string path;
};

}  // namespace hexlume::batch
