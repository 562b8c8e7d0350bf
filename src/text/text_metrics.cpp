#include "text/text_font.h"

namespace hexlume {

TEXTMETRICA MeasureFont(Canvas canvas) {
  TEXTMETRICA metrics = {};
  GetTextMetricsA(canvas, &metrics);
  return metrics;
}

}  // namespace hexlume
