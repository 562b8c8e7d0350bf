#include "dialogs/layer_page.h"

#include "dialogs/font_scale.h"
#include "dialogs/resource.h"
#include "driver/bounded_copy.h"
#include "driver/conv_state.h"

namespace hexlume {

LayerPage::LayerPage() : CheckPage(IDD_LAYER_PAGE) {}

BOOL LayerPage::OnInitDialog() {
  CheckPage::OnInitDialog();
  AddShownLayers();
  LayOutSheet();
  CenterWindow(GetDesktopWindow());
  SetAppearance();
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

// The system makes the sheet for larger pages and three buttons. Its position is kept; its size is fitted to
// the page, and the two buttons move to its lower right corner.
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
  // The page was created just now and is at the sheet's origin, so page coordinates are sheet coordinates.
  ScreenToClient(&cancelRect);
  cancel->MoveWindow(cancelRect);
  ScreenToClient(&okRect);
  ok->MoveWindow(okRect);
}

void LayerPage::OnOK() {
  // GetCheck gives 0 for a row beyond the end of the list, so a layer that isn't listed counts twice: here
  // and in AddShownLayers. The conversions compare the count with the number of layers, so it must be kept.
  for (int32_t row = 0; row < state.layerCount; ++row)
    if (m_list.GetCheck(row) == 0) state.excludedLayerCount += 1;
  if (state.excludedLayerCount == 0) {
    CheckPage::OnOK();
    return;
  }
  // One entry for each name only: an empty entry could match a layer without a name.
  const auto exclude = [](const LayerNameEntry& layer) {
    ExcludedLayer excluded;
    BoundedCopy(excluded.name, layer.name);
    state.excludedLayers.Add(excluded);
  };
  state.excludedLayers = {};
  for (const LayerNameEntry& layer : state.layerNames)
    if (layer.shown != 1) exclude(layer);
  // Names are taken by row number, not from the row's text: a name with bytes that code page 932 doesn't have
  // changes when it goes through a window.
  int row = 0;
  for (const LayerNameEntry& layer : state.layerNames) {
    if (layer.shown != 1) continue;
    if (m_list.GetCheck(row) == 0) exclude(layer);
    ++row;
  }
  CheckPage::OnOK();
}

}  // namespace hexlume
