#include "tools/hexlume/drawing/faces.h"

#include <algorithm>

#include "tools/hexlume/metafile/emf_record.h"
#include "tools/hexlume/metafile/utf16.h"

namespace hexlume {
namespace {

// Of a record that creates a font.
std::string FaceOf(const EmfRecord& record) {
  constexpr size_t nameOffset = 40, nameUnits = 32;
  std::string face;
  for (size_t i = 0; i < nameUnits; ++i) {
    uint32_t unit = record.UShort(nameOffset + 2 * i);
    if (unit == 0) break;
    if (IsHighSurrogate(unit) && i + 1 < nameUnits)
      unit = JoinSurrogates(unit, record.UShort(nameOffset + 2 * ++i));
    AppendUtf8(face, unit);
  }
  return face;
}

}  // namespace

std::vector<std::string> FacesOf(const MetafileBytes& metafile) {
  std::vector<std::string> faces;
  size_t at = 0;
  try {
    while (at < metafile.size()) {
      const EmfRecord record(metafile.data() + at, metafile.size() - at);
      at += record.Size();
      if (record.Type() != RecordType::extCreateFontIndirectW) continue;
      const std::string face = FaceOf(record);
      if (std::find(faces.begin(), faces.end(), face) == faces.end()) faces.push_back(face);
    }
  } catch (const MalformedRecord&) {
    // The rest has none.
  }
  return faces;
}

}  // namespace hexlume
