// Libraries that stay in the process when ours is unloaded: they keep memory to their end and never free it,
// so each load and unload of them would lose some.
#include <dlfcn.h>
#include <fontconfig/fontconfig.h>
#include <pixman.h>

namespace hexlume {

namespace {

// The library that a function stands in.
template <typename Function>
void KeepLibraryOf(Function* function) {
  Dl_info library;
  if (dladdr(reinterpret_cast<const void*>(function), &library))
    dlopen(library.dli_fname, RTLD_LAZY | RTLD_NOLOAD | RTLD_NODELETE);
}

struct KeptLibraries {
  KeptLibraries() {
    KeepLibraryOf(pixman_region32_init);
    KeepLibraryOf(FcInit);
  }
} keptLibraries;

}  // namespace

}  // namespace hexlume
