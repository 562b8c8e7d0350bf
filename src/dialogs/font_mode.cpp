// The font of the dialogs, as the host wants it.
#include "driver/conv_state.h"
#include "hexlume.h"

uint8_t vzDXFSetFontMode(uint8_t mode) {
  hexlume::state.fontMode = mode;
  return mode;
}
