#include "canvas/left_pen.h"

#include "driver/conv_state.h"

namespace hexlume {

void LeavePen(HPEN pen) {
  DeleteLeftPen();
  state.leftPen = pen;
}

void DeleteLeftPen() {
  if (state.leftPen) DeleteObject(state.leftPen);
  state.leftPen = nullptr;
}

}  // namespace hexlume
