#include "dialogs/line_page.h"

#include "dialogs/menu_font.h"
#include "dialogs/resource.h"
#include "dialogs/theme.h"
#include "driver/conv_state.h"

namespace hexlume {

namespace {

struct Row {
  UINT textId;
  int32_t family;
};

constexpr Row rows[] = {
    {IDS_SOLID, 0},         //
    {IDS_DOTTED, 2},        // in front of the dashed lines, whose family is 1
    {IDS_DASHED, 1},        //
    {IDS_CHAIN, 3},         //
    {IDS_DOUBLE_CHAIN, 4},  //
};
constexpr int rowCount = static_cast<int>(std::size(rows));

}  // namespace

LinePage::LinePage() : CPropertyPage(IDD_LINE_PAGE) {}

void LinePage::DoDataExchange(CDataExchange* exchange) {
  CPropertyPage::DoDataExchange(exchange);
  DDX_Control(exchange, IDC_ROWS, m_list);
}

BOOL LinePage::OnInitDialog() {
  CPropertyPage::OnInitDialog();
  for (const Row& row : rows) {
    CString text;
    text.LoadString(row.textId);
    m_list.SetCheck(m_list.AddString(text), 1);
  }
  EnableTabTexture(m_hWnd);
  if (state.fontMode == 1) UseMenuFont(m_hWnd, dlgFont);
  return TRUE;
}

BOOL LinePage::OnCommand(WPARAM wParam, LPARAM lParam) {
  if (LOWORD(wParam) == IDC_ROWS && HIWORD(wParam) == LBN_DBLCLK) {
    OnDblclkRow();
    return TRUE;
  }
  return CPropertyPage::OnCommand(wParam, lParam);
}

void LinePage::OnDblclkRow() {
  const int row = m_list.GetCurSel();
  m_list.SetCheck(row, m_list.GetCheck(row) == 1 ? 0 : 1);
}

void LinePage::OnOK() {
  state.excludedLtypeCount = 0;
  for (int row = 0; row < rowCount; ++row)
    if (m_list.GetCheck(row) == 0) state.excludedLtypeCount += 1;
  if (state.excludedLtypeCount == 0) {
    CPropertyPage::OnOK();
    return;
  }
  state.excludedLtypes = {};
  for (int row = 0; row < rowCount; ++row)
    if (m_list.GetCheck(row) == 0) state.excludedLtypes.push_back(rows[row].family);
  CPropertyPage::OnOK();
}

}  // namespace hexlume
