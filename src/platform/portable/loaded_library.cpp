#include "platform/portable/loaded_library.h"

#include <dlfcn.h>

#include <cerrno>
#include <cstring>
#include <new>
#include <string_view>

namespace hexlume {

namespace {

// The loader says why it has failed only in words, of which the last are the system's for a missing file.
bool IsMissing(std::string_view reason) {
  const std::string_view missing = std::strerror(ENOENT);
  return reason.size() >= missing.size() && reason.substr(reason.size() - missing.size()) == missing;
}

}  // namespace

LoadedLibrary::LoadedLibrary(const char* name)
    : library(dlopen(name, RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE)) {
  if (!library && !IsMissing(dlerror())) throw std::bad_alloc();
}

void* LoadedLibrary::Address(const char* name) const {
  void* const address = library ? dlsym(library, name) : nullptr;
  if (!address) throw std::bad_alloc();
  return address;
}

}  // namespace hexlume
