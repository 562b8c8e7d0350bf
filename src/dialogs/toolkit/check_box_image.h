// Draws check boxes with the current theme, or as the system draws them without themes.
#pragma once

#include <windows.h>

#include <uxtheme.h>

#include "dialogs/toolkit/dll.h"

namespace hexlume {

class CheckBoxImage : private CDll {
 public:
  ~CheckBoxImage() { Close(); }

  // Loads the current theme of the window.
  void Open(HWND window);

  SIZE Size() const { return size; }
  void Draw(HDC canvas, const RECT& box, bool ticked, bool enabled) const;

 private:
  void Close();

  HTHEME theme = nullptr;
  SIZE size = {};
};

}  // namespace hexlume
