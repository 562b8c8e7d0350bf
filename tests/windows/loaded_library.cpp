#include "support/loaded_library.h"

#include <fstream>
#include <stdexcept>
#include <string>

namespace hexlume {

namespace {

std::filesystem::path OwnFolder() {
  static int32_t loads = 0;
  const std::string name =
      "hexlume-load-" + std::to_string(GetCurrentProcessId()) + '-' + std::to_string(++loads);
  return std::filesystem::temp_directory_path() / name;
}

template <typename Function>
void Bind(HMODULE library, const char* name, Function& function) {
  function = reinterpret_cast<Function>(GetProcAddress(library, name));
  if (!function) throw std::runtime_error(std::string("the library has no ") + name);
}

}  // namespace

struct LoadedLibrary::Module {
  std::filesystem::path folder;
  HMODULE library = nullptr;

  ~Module() {
    if (library) FreeLibrary(library);
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
  }
};

std::filesystem::path LibraryFile() {
  char program[MAX_PATH];
  GetModuleFileNameA(nullptr, program, sizeof program);
  return std::filesystem::path(program).parent_path() / "Hexlume.dll";
}

LoadedLibrary::LoadedLibrary(const std::string& besideName) : module(std::make_unique<Module>()) {
  module->folder = OwnFolder();
  std::filesystem::create_directories(module->folder);
  const std::filesystem::path file = module->folder / "Hexlume.dll";
  // Over one that a program with the same number left when it was ended.
  std::filesystem::copy_file(LibraryFile(), file, std::filesystem::copy_options::overwrite_existing);
  if (!besideName.empty()) std::ofstream(module->folder / besideName) << "something";

  module->library = LoadLibraryA(file.string().c_str());
  if (!module->library) throw std::runtime_error("the library can't be loaded");
  Bind(module->library, "vzMetaMake", metaMake);
  Bind(module->library, "vzReMetaMake", reMetaMake);
  Bind(module->library, "vzRotMetaMake", rotMetaMake);
  Bind(module->library, "vzFullSizeMetaMake", fullSizeMetaMake);
  Bind(module->library, "vzDXFMetaMake", dxfMetaMake);
  Bind(module->library, "vzDXFReMetaMake", dxfReMetaMake);
  Bind(module->library, "vzDXFRotMetaMake", dxfRotMetaMake);
  Bind(module->library, "vzDXFFullSizeMetaMake", dxfFullSizeMetaMake);
  Bind(module->library, "vzDXFSetFontMode", dxfSetFontMode);
}

LoadedLibrary::~LoadedLibrary() = default;

const std::filesystem::path& LoadedLibrary::Folder() const {
  return module->folder;
}

}  // namespace hexlume
