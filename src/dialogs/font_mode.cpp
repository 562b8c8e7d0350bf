// Lets the host choose the font of the dialogs.
#include "driver/conv_state.h"
#include "hexlume.h"

uint8_t vzDXFSetFontMode(uint8_t mode) {
  hexlume::state.fontMode = mode;
  return mode;
}
