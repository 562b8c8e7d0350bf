// The application object: start and end of the library, and the settings of the last conversion.
#pragma once

#include <cstdint>
#include <vector>

#include "dialogs/toolkit/win_app.h"
#include "driver/conv_state.h"

namespace hexlume {

class CHexlumeApp : public CWinApp {
 public:
  int InitInstance() override;
  int ExitInstance() override;

  // Stores the settings of a conversion for LoadSelection. scale is the drawing scale truncated to an
  // integer. A path of 260 bytes or more throws textTooLongCode and leaves the stored settings unchanged.
  void SaveSelection(const char* path, int32_t excludedLayerCount,
                     const NamedTable<ExcludedLayer>& excludedLayers, int32_t excludedLtypeCount,
                     const std::vector<int32_t>& excludedLtypes, int32_t scale, int32_t halfWidthFont);

  // Returns the stored settings. The lists are copied; the path is a pointer to the stored one, valid until
  // the next SaveSelection. A list whose count is 0 is left unchanged.
  void LoadSelection(const char*& pathOut, int32_t& excludedLayerCountOut,
                     NamedTable<ExcludedLayer>& excludedLayersOut, int32_t& excludedLtypeCountOut,
                     std::vector<int32_t>& excludedLtypesOut, int32_t& scaleOut,
                     int32_t& halfWidthFontOut) const;

 private:
  char lastPath[260] = {};
  int32_t lastLayerCount = 0;
  NamedTable<ExcludedLayer> lastLayers;
  int32_t lastLtypeCount = 0;
  std::vector<int32_t> lastLtypes;
  int32_t lastScale = 0;
  int32_t lastHalfWidthFont = 0;
};

extern CHexlumeApp theApp;

}  // namespace hexlume
