// Start and end of the library, which are those of its static objects. In a source of its own, as the host
// library has neither.
#include "driver/hexlume_app.h"

namespace hexlume {

namespace {

struct ModuleLife {
  ModuleLife() { theApp.InitInstance(); }
  ~ModuleLife() { theApp.ExitInstance(); }
} moduleLife;

}  // namespace

}  // namespace hexlume
