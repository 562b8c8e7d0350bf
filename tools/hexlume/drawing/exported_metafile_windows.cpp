#include "tools/hexlume/drawing/exported_metafile.h"

#include <utility>

namespace hexlume {
namespace {

std::vector<uint8_t> CopyOf(HENHMETAFILE metafile) {
  std::vector<uint8_t> bytes(GetEnhMetaFileBits(metafile, 0, nullptr));
  bytes.resize(GetEnhMetaFileBits(metafile, static_cast<UINT>(bytes.size()), bytes.data()));
  return bytes;
}

// Adds a record. Ends the walk, with 0, where there are enough.
int CALLBACK AddRecord(HDC, HANDLETABLE*, const ENHMETARECORD* record, int, LPARAM beginning) {
  constexpr size_t enough = 1 << 16;
  auto& bytes = *reinterpret_cast<std::vector<uint8_t>*>(beginning);
  if (bytes.capacity() - bytes.size() < record->nSize) return 0;
  const auto* const first = reinterpret_cast<const uint8_t*>(record);
  bytes.insert(bytes.end(), first, first + record->nSize);
  return bytes.size() < enough;
}

class KeptMetafile : public SystemMetafile {
 public:
  explicit KeptMetafile(ExportedMetafile exported) : metafile(std::move(exported)) {}

  std::vector<uint8_t> Bytes() const override { return CopyOf(metafile.get()); }

  // The walk's function must not throw, so it has its memory in advance.
  std::vector<uint8_t> Beginning() const override {
    std::vector<uint8_t> bytes;
    bytes.reserve(1 << 17);
    EnumEnhMetaFile(nullptr, metafile.get(), AddRecord, &bytes, nullptr);
    return bytes;
  }

  bool CopyTo(const wchar_t* path) const override {
    return ExportedMetafile(CopyEnhMetaFileW(metafile.get(), path)) != nullptr;
  }

 private:
  ExportedMetafile metafile;
};

}  // namespace

// To copy a large metafile and to write the copy takes several times as long as to let the system write it.
MetafileBytes BytesOf(ExportedMetafile metafile) {
  constexpr size_t large = 1 << 20;
  const size_t size = GetEnhMetaFileBits(metafile.get(), 0, nullptr);
  if (size < large) return MetafileBytes(CopyOf(metafile.get()));
  return {std::make_shared<KeptMetafile>(std::move(metafile)), size};
}

bool SaveBySystem(const MetafileBytes& metafile, WholeFile& file) {
  const SystemMetafile* const kept = metafile.System();
  return kept && file.FillBy([kept](const wchar_t* path) { return kept->CopyTo(path); }, metafile.size());
}

}  // namespace hexlume
