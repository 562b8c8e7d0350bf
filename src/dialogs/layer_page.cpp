#include "dialogs/layer_page.h"

#include "dialogs/font_scale.h"
#include "dialogs/menu_font.h"
#include "dialogs/resource.h"
#include "dialogs/theme.h"
#include "driver/bounded_copy.h"
#include "driver/conv_state.h"

namespace hexlume {

LayerPage::LayerPage() : CPropertyPage(IDD_LAYER_PAGE) {}

void LayerPage::DoDataExchange(CDataExchange* exchange) {
  CPropertyPage::DoDataExchange(exchange);
  DDX_Control(exchange, IDC_ROWS, m_list);
}

BOOL LayerPage::OnInitDialog() {
  CPropertyPage::OnInitDialog();
  AddShownLayers();
  LayOutSheet();
  CenterWindow(GetDesktopWindow());
  EnableTabTexture(m_hWnd);
  if (state.fontMode == 1) UseMenuFont(m_hWnd, dlgFont);
  return TRUE;
}

void LayerPage::AddShownLayers() {
  state.excludedLayerCount = 0;
  m_list.SetRedraw(FALSE);
  for (const LayerNameEntry& layer : state.layerNames) {
    if (layer.shown == 1)
      m_list.SetCheck(m_list.AddString(layer.name), 1);
    else
      state.excludedLayerCount += 1;
  }
  m_list.SetRedraw(TRUE);
}

// The sheet is made for larger pages and three buttons. It keeps its place; its size goes by the page, and
// its buttons stand in its lower right corner.
void LayerPage::LayOutSheet() {
  CWnd* sheet = GetParent();
  CWnd* ok = sheet->GetDlgItem(IDOK);
  CWnd* cancel = sheet->GetDlgItem(IDCANCEL);
  CRect okRect, cancelRect, pageRect, sheetRect;
  ok->GetWindowRect(&okRect);
  cancel->GetWindowRect(&cancelRect);
  GetWindowRect(&pageRect);
  sheet->GetWindowRect(&sheetRect);
  const int buttonWidth = okRect.Width();
  const int buttonHeight = okRect.Height();

  sheetRect.right = sheetRect.left + pageRect.Width() + AtFontScale(*this, 29);
  sheetRect.bottom = sheetRect.top + pageRect.Height() + buttonHeight + AtFontScale(*this, 70);
  sheet->MoveWindow(sheetRect);

  const int gap = AtFontScale(*this, 7);  // below the buttons and between them
  cancelRect.right = sheetRect.right - AtFontScale(*this, 9);
  cancelRect.left = cancelRect.right - buttonWidth;
  cancelRect.top = sheetRect.bottom - buttonHeight - gap;
  cancelRect.bottom = sheetRect.bottom - gap;
  okRect.right = cancelRect.left - gap;
  okRect.left = okRect.right - buttonWidth;
  okRect.top = cancelRect.top;
  okRect.bottom = cancelRect.bottom;
  // A page that has just been made stands in the corner of the sheet, and so its coordinates are the sheet's.
  ScreenToClient(&cancelRect);
  cancel->MoveWindow(cancelRect);
  ScreenToClient(&okRect);
  ok->MoveWindow(okRect);
}

BOOL LayerPage::OnCommand(WPARAM wParam, LPARAM lParam) {
  if (LOWORD(wParam) == IDC_ROWS && HIWORD(wParam) == LBN_DBLCLK) {
    OnDblclkRow();
    return TRUE;
  }
  return CPropertyPage::OnCommand(wParam, lParam);
}

void LayerPage::OnDblclkRow() {
  const int row = m_list.GetCurSel();
  m_list.SetCheck(row, m_list.GetCheck(row) == 1 ? 0 : 1);
}

void LayerPage::OnOK() {
  // A row that the list doesn't have counts as one without a tick. A layer that isn't offered thus counts
  // twice, here and in AddShownLayers. The conversions compare this count with the number of layers, so it
  // stays so.
  for (int32_t row = 0; row < state.layerCount; ++row)
    if (m_list.GetCheck(row) == 0) state.excludedLayerCount += 1;
  if (state.excludedLayerCount == 0) {
    CPropertyPage::OnOK();
    return;
  }
  // No more entries than names: one without a name could be a layer's.
  const auto exclude = [](const LayerNameEntry& layer) {
    ExcludedLayer excluded;
    BoundedCopy(excluded.name, layer.name);
    state.excludedLayers.Add(excluded);
  };
  state.excludedLayers = {};
  for (const LayerNameEntry& layer : state.layerNames)
    if (layer.shown != 1) exclude(layer);
  // By the row's number and not by its text: a name that code page 932 has no characters for doesn't come
  // back from a window as it went in.
  int row = 0;
  for (const LayerNameEntry& layer : state.layerNames) {
    if (layer.shown != 1) continue;
    if (m_list.GetCheck(row) == 0) exclude(layer);
    ++row;
  }
  CPropertyPage::OnOK();
}

}  // namespace hexlume
