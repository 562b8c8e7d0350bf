// The library as a host loads it: from its file, at run time. Each load starts anew, with nothing kept from
// earlier calls.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>

#include "hexlume.h"

namespace hexlume {

// The build's own library file, which is beside the test program.
std::filesystem::path LibraryFile();

// A copy of the library in a temporary folder of its own, loaded from there. Unloads it and deletes the
// folder at the end.
class LoadedLibrary {
 public:
  // A file named besideName, if it isn't empty, is put beside the library first.
  explicit LoadedLibrary(const std::string& besideName = "");
  ~LoadedLibrary();
  LoadedLibrary(const LoadedLibrary&) = delete;
  LoadedLibrary& operator=(const LoadedLibrary&) = delete;

  const std::filesystem::path& Folder() const;

  decltype(&vzMetaMake) metaMake;
  decltype(&vzReMetaMake) reMetaMake;
  decltype(&vzRotMetaMake) rotMetaMake;
  decltype(&vzFullSizeMetaMake) fullSizeMetaMake;
  decltype(&vzDXFMetaMake) dxfMetaMake;
  decltype(&vzDXFReMetaMake) dxfReMetaMake;
  decltype(&vzDXFRotMetaMake) dxfRotMetaMake;
  decltype(&vzDXFFullSizeMetaMake) dxfFullSizeMetaMake;
  decltype(&vzDXFSetFontMode) dxfSetFontMode;

 private:
  struct Module;
  std::unique_ptr<Module> module;
};

}  // namespace hexlume
