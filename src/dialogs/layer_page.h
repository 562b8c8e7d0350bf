// The page of the layers.
#pragma once

#include "dialogs/check_page.h"

namespace hexlume {

class LayerPage : public CheckPage {
 public:
  LayerPage();

 protected:
  BOOL OnInitDialog() override;
  void OnOK() override;

 private:
  void AddShownLayers();
  void LayOutSheet();
};

}  // namespace hexlume
