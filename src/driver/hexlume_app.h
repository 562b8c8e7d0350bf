// The application object: start and end of the library, and what the last conversion was asked for.
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

  // Remembers a conversion for LoadSelection, with its excluded layers and dash families and its scale cut to
  // a whole number. A path of 260 bytes or more throws textTooLongCode, and what was remembered before stays.
  void SaveSelection(const char* path, int32_t excludedLayerCount,
                     const NamedTable<ExcludedLayer>& excludedLayers, int32_t excludedLtypeCount,
                     const std::vector<int32_t>& excludedLtypes, int32_t scale, int32_t halfWidthFont);

  // Gives out what was remembered: the lists as copies, but the path itself, which the next save overwrites.
  // A list with the count 0 stays as the caller has it.
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
