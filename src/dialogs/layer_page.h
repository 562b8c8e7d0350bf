// The page of the layers.
#pragma once

#include "dialogs/toolkit/check_list_box.h"
#include "dialogs/toolkit/gdi_objects.h"
#include "dialogs/toolkit/property_sheet.h"

namespace hexlume {

class LayerPage : public CPropertyPage {
 public:
  LayerPage();

 protected:
  BOOL OnInitDialog() override;
  void DoDataExchange(CDataExchange* exchange) override;
  void OnOK() override;
  BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;

 private:
  void OnDblclkRow();
  void AddShownLayers();
  void LayOutSheet();

  CCheckListBox m_list;
  CFont dlgFont;
};

}  // namespace hexlume
