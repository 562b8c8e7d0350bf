#include "dialogs/selection_sheet.h"

#include "dialogs/font_scale.h"
#include "dialogs/layer_page.h"
#include "dialogs/line_page.h"
#include "dialogs/menu_font.h"
#include "dialogs/modal_result.h"
#include "dialogs/resource.h"
#include "dialogs/toolkit/gdi_objects.h"
#include "dialogs/toolkit/property_sheet.h"
#include "driver/conv_state.h"

namespace hexlume {

namespace {

class CCheckDlg : public CPropertySheet {
 public:
  using CPropertySheet::CPropertySheet;

 protected:
  void OnSize(UINT type, int cx, int cy) override;

 private:
  CFont dlgFont;
  int32_t fontPending = 1;  // 1 until the first WM_SIZE has set the font
};

void CCheckDlg::OnSize(UINT type, int cx, int cy) {
  CPropertySheet::OnSize(type, cx, cy);
  CWnd* tabs = FromHandle(reinterpret_cast<HWND>(SendMessage(PSM_GETTABCONTROL)));
  if (!tabs) return;
  // In client coordinates of the sheet. Taken as screen coordinates they would move the tabs out of sight.
  const CPropertyPage& page = *GetPage(0);
  const int margin = AtFontScale(page, 7);
  tabs->MoveWindow(CRect(margin, margin, cx - margin, cy - AtFontScale(page, 35)));
  SetActivePage(GetActivePage());  // moves the page with the tab control
  if (state.fontMode == 1 && fontPending != 0) {
    UseMenuFont(m_hWnd, dlgFont);
    fontPending = 0;
  }
}

}  // namespace

DialogResult ShowSelectionSheet() {
  state.excludedLayerCount = 0;
  state.excludedLtypeCount = 0;
  CCheckDlg sheet(IDS_SELECTION);
  LayerPage layerPage;
  LinePage linePage;
  sheet.m_psh.dwFlags |= PSH_NOAPPLYNOW;
  sheet.AddPage(&layerPage);
  sheet.AddPage(&linePage);
  return ResultOf(sheet.DoModal());
}

}  // namespace hexlume
