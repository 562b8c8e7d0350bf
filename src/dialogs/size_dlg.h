// The dialog in which the scale of a drawing beyond the largest sheet is chosen.
#pragma once

#include <cstdint>

#include "dialogs/toolkit/combo_box.h"
#include "dialogs/toolkit/dialog.h"
#include "dialogs/toolkit/gdi_objects.h"

namespace hexlume {

class CSizeDlg : public CDialog {
 public:
  CSizeDlg();

  BOOL PreTranslateMessage(MSG* message) override;

 protected:
  BOOL OnInitDialog() override;
  void DoDataExchange(CDataExchange* exchange) override;
  void OnOK() override;
  BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;

 private:
  void OnSelchangeScale();
  void OnEditupdateScale();
  void ShowSize();

  CComboBox m_combo;
  CString heightText;
  CString widthText;
  CFont dlgFont;
  int32_t typed = 0;  // 1 from the first character typed on
  CString scaleText;  // the denominator
};

}  // namespace hexlume
