#include "dialogs/check_page.h"

#include "dialogs/menu_font.h"
#include "dialogs/resource.h"
#include "dialogs/theme.h"
#include "driver/conv_state.h"

namespace hexlume {

void CheckPage::DoDataExchange(CDataExchange* exchange) {
  CPropertyPage::DoDataExchange(exchange);
  DDX_Control(exchange, IDC_ROWS, m_list);
}

void CheckPage::SetAppearance() {
  EnableTabTexture(m_hWnd);
  if (state.fontMode == 1) UseMenuFont(m_hWnd, dlgFont);
}

BOOL CheckPage::OnCommand(WPARAM wParam, LPARAM lParam) {
  if (LOWORD(wParam) == IDC_ROWS && HIWORD(wParam) == LBN_DBLCLK) {
    OnDblclkRow();
    return TRUE;
  }
  return CPropertyPage::OnCommand(wParam, lParam);
}

void CheckPage::OnDblclkRow() {
  const int row = m_list.GetCurSel();
  m_list.SetCheck(row, m_list.GetCheck(row) == 1 ? 0 : 1);
}

}  // namespace hexlume
