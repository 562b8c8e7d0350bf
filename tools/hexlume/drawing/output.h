// Writes the results of a converted drawing: the metafile, the listing and the pictures.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "tools/hexlume/archive/job_plan.h"
#include "tools/hexlume/command/options.h"
#include "tools/hexlume/metafile/metafile_bytes.h"
#include "tools/hexlume/system/file_output.h"

namespace hexlume {

// A file, or standard output for "-". All functions throw OutputError.
class Output {
 public:
  explicit Output(const std::string& path);

  void Write(const uint8_t* bytes, size_t count);
  void Write(const MetafileBytes& metafile);

  // Returns the number of bytes.
  int64_t Commit();

 private:
  std::optional<WholeFile> file;
  int64_t size = 0;
};

// The folders of the tree below -d are made when they are needed.
void MakeFolderOf(const std::string& path);

struct WrittenOutput {
  std::string file;
  int64_t size;
};

// Writes all results of the job, and the listing if the options ask for it. With a heading it begins with the drawing's
// name. Throws OutputError.
std::vector<WrittenOutput> WriteOutputs(const MetafileBytes& metafile, const Job& job, const Options& options,
                                        bool hasHeading);

}  // namespace hexlume
