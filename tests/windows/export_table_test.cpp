// What the library shows of itself to the system's loader.
#include <gtest/gtest.h>
#include <windows.h>

#include <cstring>
#include <set>
#include <string>

#include "support/loaded_library.h"

namespace hexlume::export_table_test {
namespace {

// The library's file as the loader lays it out, without running it.
class LoadedImage {
 public:
  LoadedImage()
      : module(LoadLibraryExA(LibraryFile().string().c_str(), nullptr, DONT_RESOLVE_DLL_REFERENCES)) {}
  ~LoadedImage() { FreeLibrary(module); }

  template <typename Part>
  const Part* At(DWORD offset) const {
    return reinterpret_cast<const Part*>(reinterpret_cast<const char*>(module) + offset);
  }

  const IMAGE_EXPORT_DIRECTORY* Exports() const {
    const auto* headers = At<IMAGE_NT_HEADERS>(static_cast<DWORD>(At<IMAGE_DOS_HEADER>(0)->e_lfanew));
    return At<IMAGE_EXPORT_DIRECTORY>(headers->OptionalHeader.DataDirectory[0].VirtualAddress);
  }

 private:
  HMODULE module;
};

TEST(ExportTable, holds_exactly_the_nine_undecorated_names) {
  const LoadedImage image;
  const IMAGE_EXPORT_DIRECTORY* exports = image.Exports();
  const DWORD* names = image.At<DWORD>(exports->AddressOfNames);
  std::set<std::string> exported;
  for (DWORD i = 0; i < exports->NumberOfNames; ++i) exported.insert(image.At<char>(names[i]));
  EXPECT_EQ((std::set<std::string>{"vzMetaMake", "vzReMetaMake", "vzRotMetaMake", "vzFullSizeMetaMake",
                                   "vzDXFMetaMake", "vzDXFReMetaMake", "vzDXFRotMetaMake",
                                   "vzDXFFullSizeMetaMake", "vzDXFSetFontMode"}),
            exported);
  EXPECT_EQ(9u, exports->NumberOfFunctions);
}

TEST(ExportTable, tells_the_name_of_the_library) {
  const LoadedImage image;
  EXPECT_STREQ("Hexlume.dll", image.At<char>(image.Exports()->Name));
}

TEST(LibraryLife, an_ini_file_beside_the_library_is_gone_after_the_load) {
  const LoadedLibrary library("Hexlume.ini");
  EXPECT_FALSE(std::filesystem::exists(library.Folder() / "Hexlume.ini"));
}

TEST(LibraryLife, other_files_beside_the_library_stay) {
  const LoadedLibrary library("Hexlume.txt");
  EXPECT_TRUE(std::filesystem::exists(library.Folder() / "Hexlume.txt"));
}

TEST(LibraryLife, can_be_loaded_and_unloaded_again_and_again) {
  for (int32_t load = 0; load < 20; ++load) {
    const LoadedLibrary library;
    EXPECT_EQ(7, library.dxfSetFontMode(7));
  }
}

}  // namespace
}  // namespace hexlume::export_table_test
