#include "host/diagnosis.h"

#include <string_view>

#include "driver/group_reader.h"
#include "driver/text_stream.h"

namespace hexlume {

namespace {

using namespace std::string_view_literals;

struct Signature {
  std::string_view bytes;  // at the start of the file
  int32_t status;
};

const Signature signatures[] = {
    {"AutoCAD Binary DXF"sv, HEXLUME_STATUS_BINARY_DXF},
    {"AC10"sv, HEXLUME_STATUS_DWG},
    {"AC1."sv, HEXLUME_STATUS_DWG},
    {"AC2."sv, HEXLUME_STATUS_DWG},
    {"MC0.0"sv, HEXLUME_STATUS_DWG},
    {"\x1F\x8B"sv, HEXLUME_STATUS_COMPRESSED},    // gzip
    {"\x1F\x9D"sv, HEXLUME_STATUS_COMPRESSED},    // compress
    {"PK\x03\x04"sv, HEXLUME_STATUS_COMPRESSED},  // zip
    {"BZh"sv, HEXLUME_STATUS_COMPRESSED},         // bzip2
    {"\xFD"
     "7zXZ\0"sv,
     HEXLUME_STATUS_COMPRESSED},                          // xz
    {"\x28\xB5\x2F\xFD"sv, HEXLUME_STATUS_COMPRESSED},    // zstd
    {"7z\xBC\xAF\x27\x1C"sv, HEXLUME_STATUS_COMPRESSED},  // 7z
    {"Rar!\x1A\x07"sv, HEXLUME_STATUS_COMPRESSED},        // rar
    {"\x04\x22\x4D\x18"sv, HEXLUME_STATUS_COMPRESSED},    // lz4
};

int32_t StatusOfSignature(HostRun& run) {
  char start[32];
  const std::unique_ptr<TextSource> source = run.OpenRaw();
  const std::string_view bytes(start, source ? source->Read(start, sizeof start) : 0);
  for (const Signature& signature : signatures)
    if (bytes.substr(0, signature.bytes.size()) == signature.bytes) return signature.status;
  return HEXLUME_STATUS_OK;
}

// What the drawing has, as far as the measuring pass needs it.
struct Parts {
  bool sections = false;
  bool tables = false;
  bool layerTable = false;
  bool layerTableEnd = false;
  bool entities = false;
  bool endMark = false;
};

Parts FindParts(TextStream& stream) {
  Parts parts;
  while (ReadGroup(stream)) {
    if (AtGroup(0, "SECTION")) parts.sections = true;
    if (AtGroup(2, "TABLES")) parts.tables = true;
    if (AtGroup(2, "LAYER") && parts.tables) parts.layerTable = true;
    if (AtGroup(0, "ENDTAB") && parts.layerTable) parts.layerTableEnd = true;
    if (AtGroup(2, "ENTITIES")) parts.entities = true;
    if (AtGroup(0, "EOF")) parts.endMark = true;
  }
  return parts;
}

int32_t StatusOfParts(const Parts& parts) {
  if (!parts.sections) return HEXLUME_STATUS_NO_DXF;
  if (parts.tables && !parts.layerTable && parts.endMark) return HEXLUME_STATUS_NO_LAYERS;
  if (parts.tables && !parts.layerTableEnd) return HEXLUME_STATUS_CUT_OFF;
  if (!parts.entities) return parts.endMark ? HEXLUME_STATUS_NO_ENTITIES : HEXLUME_STATUS_CUT_OFF;
  return HEXLUME_STATUS_OK;
}

}  // namespace

Diagnosis Diagnose(HostRun& run) {
  if (const int32_t status = StatusOfSignature(run)) return {status, 0};
  TextStream stream;
  stream.source = run.Open(run.changes);
  if (!stream.source) return {StatusOf(run.trouble), 0};
  const int32_t status = StatusOfParts(FindParts(stream));
  return {status, status == HEXLUME_STATUS_CUT_OFF ? LastLine(run) : 0};
}

int32_t StatusOf(FileTrouble trouble) {
  switch (trouble) {
    case FileTrouble::notFound: return HEXLUME_STATUS_NOT_FOUND;
    case FileTrouble::notAFile: return HEXLUME_STATUS_NOT_A_FILE;
    case FileTrouble::noMemory: return HEXLUME_STATUS_NO_MEMORY;
    default: return HEXLUME_STATUS_NOT_ALLOWED;
  }
}

}  // namespace hexlume
