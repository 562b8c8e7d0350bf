#include "dialogs/toolkit/combo_box.h"

#include "dialogs/toolkit/wide_text.h"

namespace hexlume {

int CComboBox::AddString(const char* text) {
  const std::wstring wide = WideText(text);
  return static_cast<int>(SendMessage(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(wide.c_str())));
}

}  // namespace hexlume
