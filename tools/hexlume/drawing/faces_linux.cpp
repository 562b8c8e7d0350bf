#include <fontconfig/fontconfig.h>

#include <map>
#include <memory>

#include "platform/portable/font_memory.h"
#include "tools/hexlume/drawing/faces.h"

namespace hexlume {
namespace {

bool FindFont(const std::string& face) {
  CheckFontRoom();
  const std::unique_ptr<FcPattern, decltype(&FcPatternDestroy)> pattern(FcPatternCreate(), FcPatternDestroy);
  const std::unique_ptr<FcObjectSet, decltype(&FcObjectSetDestroy)> objects(
      FcObjectSetBuild(FC_FAMILY, nullptr), FcObjectSetDestroy);
  CheckFontMemory(
      pattern && objects &&
      FcPatternAddString(pattern.get(), FC_FAMILY, reinterpret_cast<const FcChar8*>(face.c_str())));
  const std::unique_ptr<FcFontSet, decltype(&FcFontSetDestroy)> fonts(
      FcFontList(nullptr, pattern.get(), objects.get()), FcFontSetDestroy);
  CheckFontMemory(fonts != nullptr);
  return fonts->nfont > 0;
}

}  // namespace

bool HasFont(const std::string& face) {
  static std::map<std::string, bool> known;
  // The face of vertical text is that of the same name without the mark.
  const std::string name = face.compare(0, 1, "@") == 0 ? face.substr(1) : face;
  const auto found = known.find(name);
  return found != known.end() ? found->second
                              : known.emplace(name, name.empty() || FindFont(name)).first->second;
}

}  // namespace hexlume
