// The application object, as far as it is the same for every library.
#pragma once

namespace hexlume {

class CWinApp {
 public:
  virtual ~CWinApp() = default;

  // Called when the library is loaded and unloaded. InitInstance returns 0 if the library can't start.
  virtual int InitInstance() { return 1; }
  virtual int ExitInstance() { return 0; }
};

}  // namespace hexlume
