#include "driver/conv_state.h"

#include <algorithm>
#include <iterator>

#include "driver/work_budget.h"

namespace hexlume {

ConvState state = {};

namespace {

constexpr COLORREF colors[] = {
    0x000000,  // black
    0x0000FF,  // red
    0x00FFFF,  // yellow
    0x00FF00,  // green
    0xFFFF00,  // cyan
    0xFF0000,  // blue
    0xFF00FF,  // magenta
    0xFFFFFF,  // white
};

}  // namespace

void ResetConvState() {
  FreeTables();
  BeginWork();
  state.originX = 0.0;
  state.originY = 0.0;
  state.drawScale = 0.0;
  state.sheetHeightF = 0.0;
  std::copy(std::begin(colors), std::end(colors), state.colorTable);
  state.rotated = 0;
  state.colorCount = 7;
  state.blockLevel = 0;
  state.nestedBytes = 0;
}

void FreeTables() {
  // Assigned, not cleared, so that the memory of a large drawing is released.
  state.layers = {};
  state.layersOwned = 0;
  state.layerNames = {};
  state.layerNamesOwned = 0;
  state.layerCount = 0;
  state.excludedLayers = {};
  state.excludedLayerCount = 0;
  state.excludedLtypes = {};
  state.excludedLtypeCount = 0;
  state.ltypes = {};
  state.dimStyles = {};
  state.blocks = {};
}

}  // namespace hexlume
