#include "platform/pen_stroke.h"

namespace hexlume {

void StrokeLine(HDC dc, int width, COLORREF color, POINT start, POINT end) {
  StrokeByCalls(dc, width, color, start, end);
}

}  // namespace hexlume
