// The GDI objects that the dialogs need.
#pragma once

#include <windows.h>

namespace hexlume {

class CWnd;

// A font that is deleted with its object. It must outlive the windows that use it.
class CFont {
 public:
  CFont() = default;
  ~CFont() { DeleteObject(); }
  CFont(const CFont&) = delete;
  CFont& operator=(const CFont&) = delete;

  BOOL Attach(HGDIOBJ font) {
    DeleteObject();
    m_hObject = font;
    return font != nullptr;
  }
  void DeleteObject() {
    if (m_hObject) ::DeleteObject(m_hObject);
    m_hObject = nullptr;
  }

  HGDIOBJ m_hObject = nullptr;
};

// The device context of a whole window including its frame, or of the screen if window is null.
class CWindowDC {
 public:
  explicit CWindowDC(CWnd* window);
  ~CWindowDC();
  CWindowDC(const CWindowDC&) = delete;
  CWindowDC& operator=(const CWindowDC&) = delete;

  HDC m_hDC;

 private:
  HWND m_hWnd;
};

// The device context of a window's client area, with the window's font selected.
class CFontDC {
 public:
  explicit CFontDC(HWND window);
  ~CFontDC();
  CFontDC(const CFontDC&) = delete;
  CFontDC& operator=(const CFontDC&) = delete;

  const HDC m_hDC;

 private:
  const HWND m_hWnd;
  const HGDIOBJ m_fontBefore;
};

}  // namespace hexlume
