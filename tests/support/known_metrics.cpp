#include "support/known_metrics.h"

#include "text/text_font.h"

namespace hexlume {

KnownMetrics knownMetrics;

TEXTMETRICA MeasureFont(Canvas) {
  ++knownMetrics.calls;
  TEXTMETRICA metrics = {};
  metrics.tmDescent = knownMetrics.descent;
  metrics.tmAveCharWidth = knownMetrics.aveCharWidth;
  return metrics;
}

}  // namespace hexlume
