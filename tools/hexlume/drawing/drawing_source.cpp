#include "tools/hexlume/drawing/drawing_source.h"

#include <algorithm>
#include <cstring>

namespace hexlume {
namespace {

std::string ReadToEnd(std::FILE* stream) {
  constexpr size_t chunk = 1 << 20;
  std::string bytes;
  for (;;) {
    const size_t before = bytes.size();
    bytes.resize(before + chunk);
    const size_t got = std::fread(bytes.data() + before, 1, chunk, stream);
    bytes.resize(before + got);
    if (got == 0 || bytes.size() > static_cast<size_t>(largestDrawing)) return bytes;
  }
}

}  // namespace

DrawingSource OpenDrawing(const std::string& path) {
  if (path == standardStream) return {path, ReadToEnd(PlainStandardInput())};
  const auto stamp = StampOf(path);
  if (!stamp || stamp->kind != FileKind::other) return {path, std::nullopt};
  const File stream = OpenFile(path, "rb");
  if (!stream) return {path, std::nullopt, false};
  return {path, ReadToEnd(stream.get())};
}

DrawingSource ReadDrawing(const std::string& path) {
  const auto stamp = StampOf(path);
  const File file = stamp && stamp->kind == FileKind::file ? OpenFile(path, "rb") : nullptr;
  if (!file) return {path, std::nullopt};
  std::string bytes = ReadToEnd(file.get());
  if (std::ferror(file.get())) return {path, std::nullopt};
  return {path, std::move(bytes)};
}

bool IsStream(const std::string& path) {
  if (path == standardStream) return true;
  const auto stamp = StampOf(path);
  return stamp && stamp->kind == FileKind::other;
}

DrawingParts::DrawingParts(const DrawingSource& opened) : source(opened) {
  if (source.bytes) {
    size = static_cast<int64_t>(source.bytes->size());
    return;
  }
  const auto stamp = StampOf(source.path);
  if (!stamp || stamp->kind != FileKind::file) return;
  size = stamp->size;
  file = OpenFile(source.path, "rb");
  // Few large parts are read.
  if (file) std::setvbuf(file.get(), nullptr, _IONBF, 0);
}

size_t DrawingParts::ReadAt(int64_t place, char* buffer, size_t count) {
  if (place < 0 || place >= size) return 0;
  if (source.bytes) {
    const size_t part = std::min(count, static_cast<size_t>(size - place));
    std::memcpy(buffer, source.bytes->data() + place, part);
    return part;
  }
  if (place != filePlace && !SeekFile(file.get(), place, SEEK_SET)) return 0;
  const size_t got = std::fread(buffer, 1, count, file.get());
  filePlace = place + static_cast<int64_t>(got);
  return got;
}

}  // namespace hexlume
