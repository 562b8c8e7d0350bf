// In the tool this source takes the place of picture_linux.cpp, which is in the module.
#include <dlfcn.h>
#include <sys/auxv.h>

#include <cstring>
#include <filesystem>
#include <string>
#include <system_error>

#include "tools/hexlume/picture/picture_module.h"
#include "tools/hexlume/picture/picture_writers.h"

namespace hexlume {
namespace {

// The build has the folders of an installation.
std::string ModuleFile() {
  std::error_code error;
  std::filesystem::path tool = std::filesystem::read_symlink("/proc/self/exe", error);
  // /proc isn't mounted in each chroot.
  if (error) tool = std::filesystem::canonical(reinterpret_cast<const char*>(getauxval(AT_EXECFN)), error);
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
