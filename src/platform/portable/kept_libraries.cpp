// Keeps libraries loaded when ours is unloaded. They never free some of their memory, so each unload and
// reload would leak it.
#include <dlfcn.h>
#include <pixman.h>

namespace hexlume {

namespace {

// Keeps the library that contains a function.
template <typename Function>
void KeepLibraryOf(Function* function) {
  Dl_info library;
  if (dladdr(reinterpret_cast<const void*>(function), &library))
    dlopen(library.dli_fname, RTLD_LAZY | RTLD_NOLOAD | RTLD_NODELETE);
}

struct KeptLibraries {
  KeptLibraries() { KeepLibraryOf(pixman_region32_init); }
} keptLibraries;

}  // namespace

}  // namespace hexlume
