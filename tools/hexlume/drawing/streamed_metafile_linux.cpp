#include "tools/hexlume/drawing/streamed_metafile.h"

#include <sys/mman.h>

#include <algorithm>
#include <cerrno>
#include <exception>
#include <memory>
#include <string>
#include <utility>

#include "platform/portable/metafile_stream.h"
#include "tools/hexlume/drawing/drawing_source.h"
#include "tools/hexlume/drawing/output.h"
#include "tools/hexlume/system/piece_writer_linux.h"
#include "tools/hexlume/system/replacing_file_linux.h"

namespace hexlume {
namespace {

// Empty if the file can't be mapped.
MetafileBytes MapFile(int file, size_t size) {
  void* const start = mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file, 0);
  if (start == MAP_FAILED) return {};
  const auto unmap = [size](void* first) { munmap(first, size); };
  return {static_cast<const uint8_t*>(start), size, std::shared_ptr<void>(start, unmap)};
}

class FileStream final : public StreamedMetafile, public MetafileStream {
 public:
  FileStream(std::string fileName, bool mayMakeFolder)
      : path(std::move(fileName)), makesFolder(mayMakeFolder) {}

  void Begin() override { StreamNextMetafile(this); }

  bool End() override {
    StreamNextMetafile(nullptr);
    if (size > 0 && !hasFailed) hasFailed = !writer->Finish();
    writer.reset();
    if (size > 0 && !hasFailed) bytes = MapFile(file->Descriptor(), size);
    if (size == 0 || !bytes.empty()) return true;
    file.reset();
    return false;
  }

  MetafileBytes Bytes() const override { return bytes; }

  bool Commit() override {
    try {
      file->Commit();
      return true;
    } catch (const OutputError&) {
      return false;
    }
  }

  // A fault of the processor can end this at any place, and the library goes on.
  void Take(size_t place, GrowingBlock& piece, size_t count) noexcept override {
    if (std::exchange(hasFailed, true)) return;
    const int error = errno;
    size = std::max(size, place + count);
    hasFailed = !(IsOpen() && writer->Write(place, piece, count));
    errno = error;
  }

 private:
  // Opened for the first piece.
  bool IsOpen() {
    try {
      if (writer) return true;
      if (makesFolder) MakeFolderOf(path);
      file.reset(new ReplacingFile(ReplacingFile::Nameless(path)));
      writer = std::make_unique<PieceWriter>(file->Descriptor(), metafilePieceSize);
      return true;
    } catch (const std::exception&) {
      return false;
    }
  }

  const std::string path;
  const bool makesFolder;
  std::unique_ptr<ReplacingFile> file;
  std::unique_ptr<PieceWriter> writer;  // ends before the file
  size_t size = 0;
  bool hasFailed = false;
  MetafileBytes bytes;
};

}  // namespace

std::unique_ptr<StreamedMetafile> StreamOf(const Job& job, const Options& options) {
  if (options.list || job.hasPage || job.outputs.size() != 1) return nullptr;
  const PictureOrder& output = job.outputs.front();
  if (output.kind || output.file == standardStream) return nullptr;
  const auto earlier = StampOf(output.file);
  if (earlier && earlier->kind != FileKind::file) return nullptr;
  return std::make_unique<FileStream>(output.file, options.folder.has_value());
}

}  // namespace hexlume
