#include <windows.h>

#include <map>

#include "tools/hexlume/drawing/faces.h"
#include "tools/hexlume/system/wide_text.h"

namespace hexlume {
namespace {

int CALLBACK NoteFont(const LOGFONTW*, const TEXTMETRICW*, DWORD, LPARAM found) {
  *reinterpret_cast<bool*>(found) = true;
  return 0;
}

bool FindFont(const std::string& face) {
  LOGFONTW font = {};
  font.lfCharSet = DEFAULT_CHARSET;
  WideText(face).copy(font.lfFaceName, LF_FACESIZE - 1);
  bool found = false;
  const HDC dc = CreateCompatibleDC(nullptr);
  EnumFontFamiliesExW(dc, &font, NoteFont, reinterpret_cast<LPARAM>(&found), 0);
  DeleteDC(dc);
  return found;
}

}  // namespace

bool HasFont(const std::string& face) {
  static std::map<std::string, bool> known;
  const auto [place, isNew] = known.try_emplace(face);
  if (isNew) place->second = face.empty() || FindFont(face);
  return place->second;
}

}  // namespace hexlume
