#include "dialogs/line_page.h"

#include "dialogs/resource.h"
#include "driver/conv_state.h"

namespace hexlume {

namespace {

struct Row {
  UINT textId;
  int32_t family;
};

constexpr Row rows[] = {
    {IDS_SOLID, 0},         //
    {IDS_DOTTED, 2},        // listed before the dashed lines, whose family is 1
    {IDS_DASHED, 1},        //
    {IDS_CHAIN, 3},         //
    {IDS_DOUBLE_CHAIN, 4},  //
};
constexpr int rowCount = static_cast<int>(std::size(rows));

}  // namespace

LinePage::LinePage() : CheckPage(IDD_LINE_PAGE) {}

BOOL LinePage::OnInitDialog() {
  CheckPage::OnInitDialog();
  for (const Row& row : rows) {
    CString text;
    text.LoadString(row.textId);
    m_list.SetCheck(m_list.AddString(text), 1);
  }
  SetAppearance();
  return TRUE;
}

void LinePage::OnOK() {
  state.excludedLtypeCount = 0;
  for (int row = 0; row < rowCount; ++row)
    if (m_list.GetCheck(row) == 0) state.excludedLtypeCount += 1;
  if (state.excludedLtypeCount == 0) {
    CheckPage::OnOK();
    return;
  }
  state.excludedLtypes = {};
  for (int row = 0; row < rowCount; ++row)
    if (m_list.GetCheck(row) == 0) state.excludedLtypes.push_back(rows[row].family);
  CheckPage::OnOK();
}

}  // namespace hexlume
