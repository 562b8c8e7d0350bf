#include "dialogs/check_dlg.h"

#include "dialogs/font_scale.h"
#include "dialogs/layer_page.h"
#include "dialogs/line_page.h"
#include "dialogs/menu_font.h"
#include "dialogs/modal_result.h"
#include "dialogs/resource.h"
#include "dialogs/selection_sheet.h"
#include "driver/conv_state.h"

namespace hexlume {

void CCheckDlg::OnSize(UINT type, int cx, int cy) {
  CPropertySheet::OnSize(type, cx, cy);
  CWnd* tabs = FromHandle(reinterpret_cast<HWND>(SendMessage(PSM_GETTABCONTROL)));
  if (!tabs) return;
  // In the sheet's own points. As points of the screen they would take the tabs out of the user's reach.
  const CPropertyPage& page = *GetPage(0);
  const int margin = AtFontScale(page, 7);
  tabs->MoveWindow(CRect(margin, margin, cx - margin, cy - AtFontScale(page, 35)));
  SetActivePage(GetActivePage());  // it follows the tab control
  if (state.fontMode == 1 && fontPending != 0) {
    UseMenuFont(m_hWnd, dlgFont);
    fontPending = 0;
  }
}

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
