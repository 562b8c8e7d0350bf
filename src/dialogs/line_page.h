// The page of the line types.
#pragma once

#include "dialogs/toolkit/check_list_box.h"
#include "dialogs/toolkit/gdi_objects.h"
#include "dialogs/toolkit/property_sheet.h"

namespace hexlume {

class LinePage : public CPropertyPage {
 public:
  LinePage();

 protected:
  BOOL OnInitDialog() override;
  void DoDataExchange(CDataExchange* exchange) override;
  void OnOK() override;
  BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;

 private:
  void OnDblclkRow();

  CCheckListBox m_list;
  CFont dlgFont;
};

}  // namespace hexlume
