// The application object and its life, which is that of the library. In a source of its own, as the host
// library has an object without this life.
#include "driver/hexlume_app.h"

namespace hexlume {

CHexlumeApp theApp;

namespace {

// After the object in the same source, so that it is constructed later and destroyed earlier.
struct ModuleLife {
  ModuleLife() { theApp.InitInstance(); }
  ~ModuleLife() { theApp.ExitInstance(); }
} moduleLife;

}  // namespace

}  // namespace hexlume
