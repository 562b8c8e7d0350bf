#include "tools/hexlume/output.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <iostream>
#include <memory>

#include "tools/hexlume/metafile_listing.h"
#include "tools/hexlume/picture.h"

namespace hexlume {
namespace {

using Bytes = std::vector<uint8_t>;

void WriteFile(const std::string& path, const Bytes& bytes) {
  errno = 0;
  std::FILE* const file = std::fopen(path.c_str(), "wb");
  const bool written = file && std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
  const bool closed = file && std::fclose(file) == 0;
  if (!written || !closed) throw OutputError(path, std::strerror(errno));
}

void WriteListing(const Bytes& bytes, const Job& job, const Options& options) {
  constexpr const char* standardOutput = "standard output";
  if (options.jobs.size() > 1) std::cout << "# " << job.drawing << '\n';
  const bool sound = ListMetafile(bytes.data(), bytes.size(), std::cout);
  if (!std::cout.flush()) throw OutputError(standardOutput, "the listing is cut off");
  if (!sound) throw OutputError(standardOutput, "the metafile is malformed");
}

void WritePicture(const MetafileBytes& metafile, const PictureOrder& picture,
                  const PictureSettings& settings) {
  Bytes file;
  try {
    picture.kind->write(metafile, settings, [&file](const uint8_t* bytes, size_t size) {
      file.insert(file.end(), bytes, bytes + size);
    });
    WriteFile(picture.file, file);
  } catch (const PictureError& error) {
    throw OutputError(picture.file, error.what());
  } catch (const std::bad_alloc&) {
    throw OutputError(picture.file, "not enough memory");
  }
}

}  // namespace

void WriteOutputs(const MetafileBytes& metafile, const Job& job, const Options& options) {
  if (job.metafile) WriteFile(*job.metafile, metafile);
  if (options.list) WriteListing(metafile, job, options);
  for (const PictureOrder& picture : options.pictures)
    WritePicture(metafile, picture, options.pictureSettings);
}

}  // namespace hexlume
