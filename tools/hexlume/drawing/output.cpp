#include "tools/hexlume/drawing/output.h"

#include <cerrno>
#include <cstring>
#include <iostream>
#include <new>
#include <optional>

#include "tools/hexlume/drawing/drawing_source.h"
#include "tools/hexlume/drawing/exported_metafile.h"
#include "tools/hexlume/metafile/metafile_listing.h"
#include "tools/hexlume/picture/picture.h"
#include "tools/hexlume/system/path_text.h"
#include "tools/hexlume/system/system.h"

namespace hexlume {
namespace {

void WriteListing(const MetafileBytes& bytes, const std::string& heading) {
  constexpr const char* standardOutput = "standard output";
  if (!heading.empty()) std::cout << "# " << heading << '\n';
  const bool sound = ListMetafile(bytes.data(), bytes.size(), std::cout);
  if (!std::cout.flush()) throw OutputError(standardOutput, "the listing is cut off");
  if (!sound) throw OutputError(standardOutput, "the metafile is malformed");
}

int64_t WriteOutput(const MetafileBytes& metafile, const PictureOrder& order,
                    const PictureSettings& settings) {
  try {
    Output output(order.file);
    const auto write = [&output](const uint8_t* bytes, size_t size) { output.Write(bytes, size); };
    if (order.kind)
      order.kind->write(metafile, settings, write);
    else
      output.Write(metafile);
    return output.Commit();
  } catch (const PictureError& error) {
    throw OutputError(order.file, error.what());
  } catch (const std::bad_alloc&) {
    throw OutputError(order.file, "not enough memory");
  }
}

}  // namespace

void MakeFolderOf(const std::string& path) {
  if (!StampOf(FolderOf(path)) && !MakeFolders(FolderOf(path))) throw OutputError(path, std::strerror(errno));
}

Output::Output(const std::string& path) {
  if (path != standardStream) file.emplace(path);
}

void Output::Write(const uint8_t* bytes, size_t count) {
  if (file)
    file->Write(bytes, count);
  else
    WriteToStandardOutput(bytes, count);
  size += static_cast<int64_t>(count);
}

void Output::Write(const MetafileBytes& metafile) {
  if (file && SaveBySystem(metafile, *file))
    size += static_cast<int64_t>(metafile.size());
  else
    Write(metafile.data(), metafile.size());
}

int64_t Output::Commit() {
  if (file) file->Commit();
  return size;
}

std::vector<WrittenOutput> WriteOutputs(const MetafileBytes& metafile, const Job& job, const Options& options,
                                        bool hasHeading) {
  std::vector<WrittenOutput> written;
  if (options.list) WriteListing(metafile, hasHeading ? job.drawing : "");
  for (const PictureOrder& output : job.outputs) {
    if (options.folder) MakeFolderOf(output.file);
    written.push_back({output.file, WriteOutput(metafile, output, options.pictureSettings)});
  }
  return written;
}

}  // namespace hexlume
