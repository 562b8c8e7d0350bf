#include "dialogs/selection_sheet.h"

#include "driver/bounded_copy.h"
#include "driver/conv_state.h"

namespace hexlume {

// There is no window yet: the answer is that of a user who presses OK at once, on the page of the layers. The
// page of the line types was never opened then and excludes nothing.
bool ShowSelectionSheet() {
  state.excludedLayerCount = 0;
  for (const LayerNameEntry& layer : state.layerNames) {
    if (layer.shown == 1) continue;
    // A layer that isn't offered counts twice: as not offered, and as a row of the list that has no tick. The
    // conversions compare this count with the number of layers, so it stays so.
    state.excludedLayerCount += 2;
    ExcludedLayer& excluded = state.excludedLayers.emplace_back();
    BoundedCopy(excluded.name, layer.name);
  }
  return true;
}

}  // namespace hexlume
