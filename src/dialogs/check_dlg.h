// The sheet on which layers and line types are unticked.
#pragma once

#include "dialogs/toolkit/gdi_objects.h"
#include "dialogs/toolkit/property_sheet.h"

namespace hexlume {

class CCheckDlg : public CPropertySheet {
 public:
  using CPropertySheet::CPropertySheet;

 protected:
  void OnSize(UINT type, int cx, int cy) override;

 private:
  CFont dlgFont;
  int32_t fontPending = 1;  // the font is set with the first size
};

}  // namespace hexlume
