#include <map>
#include <memory>

#include "platform/portable/font_libraries.h"
#include "platform/portable/font_memory.h"
#include "tools/hexlume/drawing/faces.h"

namespace hexlume {
namespace {

bool FindFont(const std::string& face) {
  CheckFontRoom();
  if (!HasFontLibraries()) return false;
  const FontconfigFunctions& fontconfig = Fontconfig();
  const std::unique_ptr<FcPattern, decltype(&FcPatternDestroy)> pattern(fontconfig.FcPatternCreate(),
                                                                        fontconfig.FcPatternDestroy);
  const std::unique_ptr<FcObjectSet, decltype(&FcObjectSetDestroy)> objects(
      fontconfig.FcObjectSetBuild(FC_FAMILY, nullptr), fontconfig.FcObjectSetDestroy);
  CheckFontMemory(pattern && objects &&
                  fontconfig.FcPatternAddString(pattern.get(), FC_FAMILY,
                                                reinterpret_cast<const FcChar8*>(face.c_str())));
  const std::unique_ptr<FcFontSet, decltype(&FcFontSetDestroy)> fonts(
      fontconfig.FcFontList(nullptr, pattern.get(), objects.get()), fontconfig.FcFontSetDestroy);
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
