// The common base of the layer page and the line type page: a list of rows with check boxes.
#pragma once

#include "dialogs/toolkit/check_list_box.h"
#include "dialogs/toolkit/gdi_objects.h"
#include "dialogs/toolkit/property_sheet.h"

namespace hexlume {

class CheckPage : public CPropertyPage {
 public:
  using CPropertyPage::CPropertyPage;

 protected:
  void DoDataExchange(CDataExchange* exchange) override;
  BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;

  // The last step of OnInitDialog: sets the themed background, and the menu font in font mode 1.
  void SetAppearance();

  CCheckListBox m_list;

 private:
  void OnDblclkRow();

  CFont dlgFont;
};

}  // namespace hexlume
