#include "tools/hexlume/output.h"

#include <cerrno>
#include <cstring>
#include <iostream>
#include <new>

#include "tools/hexlume/drawing_source.h"
#include "tools/hexlume/metafile_listing.h"
#include "tools/hexlume/path_text.h"
#include "tools/hexlume/picture.h"
#include "tools/hexlume/system.h"

namespace hexlume {
namespace {

using Bytes = std::vector<uint8_t>;

// The folders of the tree below -d are made when they are needed.
void WriteFile(const std::string& path, const Bytes& bytes, bool makesFolders) {
  if (path == standardStream) return WriteToStandardOutput(bytes.data(), bytes.size());
  if (makesFolders && !StampOf(FolderOf(path)) && !MakeFolders(FolderOf(path)))
    throw OutputError(path, std::strerror(errno));
  WriteWholeFile(path, bytes);
}

void WriteListing(const Bytes& bytes, const std::string& heading) {
  constexpr const char* standardOutput = "standard output";
  if (!heading.empty()) std::cout << "# " << heading << '\n';
  const bool sound = ListMetafile(bytes.data(), bytes.size(), std::cout);
  if (!std::cout.flush()) throw OutputError(standardOutput, "the listing is cut off");
  if (!sound) throw OutputError(standardOutput, "the metafile is malformed");
}

Bytes MakePicture(const MetafileBytes& metafile, const PictureOrder& picture, int32_t dotsPerInch) {
  try {
    return picture.kind->make(metafile, dotsPerInch);
  } catch (const PictureError& error) {
    throw OutputError(picture.file, error.what());
  } catch (const std::bad_alloc&) {
    throw OutputError(picture.file, "not enough memory");
  }
}

}  // namespace

std::vector<WrittenOutput> WriteOutputs(const MetafileBytes& metafile, const Job& job, const Options& options,
                                        bool hasHeading) {
  const bool makesFolders = options.folder.has_value();
  std::vector<WrittenOutput> written;
  if (options.list) WriteListing(metafile, hasHeading ? job.drawing : "");
  for (const PictureOrder& output : job.outputs) {
    const Bytes picture = output.kind ? MakePicture(metafile, output, options.dotsPerInch) : Bytes();
    const Bytes& bytes = output.kind ? picture : metafile;
    WriteFile(output.file, bytes, makesFolders);
    written.push_back({output.file, static_cast<int64_t>(bytes.size())});
  }
  return written;
}

}  // namespace hexlume
