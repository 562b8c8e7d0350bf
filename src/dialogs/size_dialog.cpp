#include "dialogs/size_dialog.h"

#include "driver/conv_state.h"

namespace hexlume {

namespace {

constexpr int32_t defaultDenominator = 100;

}  // namespace

// There is no window yet: the answer is that of a user who presses OK at once.
bool ShowSizeDialog() {
  state.scaleDenominator = defaultDenominator;
  return true;
}

}  // namespace hexlume
