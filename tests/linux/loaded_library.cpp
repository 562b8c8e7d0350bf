#include "support/loaded_library.h"

#include <dlfcn.h>
#include <unistd.h>

#include <fstream>
#include <stdexcept>
#include <string>

namespace hexlume {

namespace {

std::filesystem::path OwnFolder() {
  static int32_t loads = 0;
  const std::string name = "hexlume-load-" + std::to_string(getpid()) + '-' + std::to_string(++loads);
  return std::filesystem::temp_directory_path() / name;
}

template <typename Function>
void Bind(void* library, const char* name, Function& function) {
  function = reinterpret_cast<Function>(dlsym(library, name));
  if (!function) throw std::runtime_error(std::string("the library has no ") + name);
}

// The calls on metafiles of the library that was loaded last.
struct MetafileCalls {
  decltype(&GetEnhMetaFileBits) getBits;
  decltype(&DeleteEnhMetaFile) remove;
} metafileCalls;

}  // namespace

struct LoadedLibrary::Module {
  std::filesystem::path folder;
  void* library = nullptr;

  ~Module() {
    if (library) dlclose(library);
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
  }
};

std::filesystem::path LibraryFile() {
  const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe");
  return program.parent_path().parent_path() / HEXLUME_LIBRARY_FOLDER / "libhexlume.so";
}

LoadedLibrary::LoadedLibrary(const std::string& besideName) : module(std::make_unique<Module>()) {
  module->folder = OwnFolder();
  std::filesystem::create_directories(module->folder);
  // The loader knows a library by its file: only a copy is another one, with a state of its own.
  const std::filesystem::path file = module->folder / "libhexlume.so";
  std::filesystem::copy_file(LibraryFile(), file);
  if (!besideName.empty()) std::ofstream(module->folder / besideName) << "something";

  module->library = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (!module->library) throw std::runtime_error(dlerror());
  Bind(module->library, "vzMetaMake", metaMake);
  Bind(module->library, "vzReMetaMake", reMetaMake);
  Bind(module->library, "vzRotMetaMake", rotMetaMake);
  Bind(module->library, "vzFullSizeMetaMake", fullSizeMetaMake);
  Bind(module->library, "vzDXFMetaMake", dxfMetaMake);
  Bind(module->library, "vzDXFReMetaMake", dxfReMetaMake);
  Bind(module->library, "vzDXFRotMetaMake", dxfRotMetaMake);
  Bind(module->library, "vzDXFFullSizeMetaMake", dxfFullSizeMetaMake);
  Bind(module->library, "vzDXFSetFontMode", dxfSetFontMode);
  Bind(module->library, "GetEnhMetaFileBits", metafileCalls.getBits);
  Bind(module->library, "DeleteEnhMetaFile", metafileCalls.remove);
}

LoadedLibrary::~LoadedLibrary() = default;

const std::filesystem::path& LoadedLibrary::Folder() const {
  return module->folder;
}

}  // namespace hexlume

// These functions belong to Windows, and on Linux to the library: a test's calls are passed on to it.
UINT GetEnhMetaFileBits(HENHMETAFILE metafile, UINT size, uint8_t* buffer) {
  return hexlume::metafileCalls.getBits(metafile, size, buffer);
}

BOOL DeleteEnhMetaFile(HENHMETAFILE metafile) {
  return hexlume::metafileCalls.remove(metafile);
}
