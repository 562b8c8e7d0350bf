// The page of the line types.
#pragma once

#include "dialogs/check_page.h"

namespace hexlume {

class LinePage : public CheckPage {
 public:
  LinePage();

 protected:
  BOOL OnInitDialog() override;
  void OnOK() override;
};

}  // namespace hexlume
