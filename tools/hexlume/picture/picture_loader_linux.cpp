// In the tool this source takes the place of picture_linux.cpp, which is in the module.
#include <dlfcn.h>

#include <cstring>
#include <filesystem>
#include <string>

#include "tools/hexlume/picture/picture_module.h"
#include "tools/hexlume/picture/picture_writers.h"
#include "tools/hexlume/system/own_path.h"

namespace hexlume {
namespace {

// The build has the folders of an installation.
std::string ModuleFile() {
  const std::filesystem::path tool = OwnPath();
  return (tool.parent_path().parent_path() / HEXLUME_MODULE_FOLDER / "libhexlume_pictures.so").string();
}

const PictureModule& Load() {
  const std::string start = "the module for pictures can't be loaded: ";
  void* const library = dlopen(ModuleFile().c_str(), RTLD_NOW | RTLD_LOCAL);
  const void* const module = library ? dlsym(library, "hexlumePictureModule") : nullptr;
  if (!module) throw PictureError(start + dlerror());
  const auto& loaded = *static_cast<const PictureModule*>(module);
  if (std::strcmp(loaded.version, HEXLUME_VERSION) != 0)
    throw PictureError(start + "it is of version " + loaded.version);
  return loaded;
}

// It stays loaded. After a failure the next picture tries again.
const PictureModule& Module() {
  static const PictureModule& module = Load();
  return module;
}

}  // namespace

void WritePngPicture(const MetafileBytes& metafile, const PictureSettings& settings, const ByteSink& sink) {
  Module().writePngPicture(metafile, settings, sink);
}

void WriteSvgPicture(const MetafileBytes& metafile, const PictureSettings& settings, const ByteSink& sink) {
  Module().writeSvgPicture(metafile, settings, sink);
}

void WritePdfPicture(const MetafileBytes& metafile, const PictureSettings& settings, const ByteSink& sink) {
  Module().writePdfPicture(metafile, settings, sink);
}

void CheckPage(const MetafileBytes& metafile) {
  Module().checkPage(metafile);
}

std::unique_ptr<PictureBook> MakePictureBook(const ByteSink& sink) {
  return Module().makePictureBook(sink);
}

}  // namespace hexlume
