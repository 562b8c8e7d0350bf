#include "driver/sheet.h"

#include "dialogs/size_dialog.h"
#include "driver/pre_scan.h"
#include "hexlume.h"

namespace hexlume {

namespace {

struct Box {
  double minX, minY, maxX, maxY;
};

struct Size {
  double width, height;
};

Box Limits(const HeaderVars& vars) {
  return {vars.limMinX, vars.limMinY, vars.limMaxX, vars.limMaxY};
}
Box Extents(const HeaderVars& vars) {
  return {vars.extMinX, vars.extMinY, vars.extMaxX, vars.extMaxY};
}

Size SizeOnSheet(const Box& box, double scale, int32_t fullSize) {
  if (fullSize == 1) return {box.maxX - box.minX, box.maxY - box.minY};
  return {box.maxX / scale - box.minX / scale, box.maxY / scale - box.minY / scale};
}

// Returns half of what the limits exceed the extents by: whole millimetres, converted to hundredths.
double CentringShift(double sheet, double drawing) {
  return WrapMul(Trunc(sheet - drawing), 100) / 2;
}

// A0 in both orientations. A drawing no wider than the long side fits whatever its height, unless it is wider
// than the short side and higher than the long one: 800 by 5000 fits.
bool FitsLargestSheet(const Size& size) {
  constexpr double shortSide = 841.0;
  constexpr double longSide = 1189.0;
  if (size.width > shortSide && size.height > longSide) return false;
  if (!(size.width > longSide)) return true;
  return !(size.height > shortSide);
}

void DivideByDenominator(HeaderVars& headerVars, Size& size) {
  const double denominator = state.scaleDenominator;
  size.width /= denominator;
  size.height /= denominator;
  headerVars.drawingScale *= denominator;
  state.shiftX /= denominator;
  state.shiftY /= denominator;
}

// Returns false if the user cancelled the dialog.
bool ChooseDenominator(HeaderVars& headerVars, Size& size, int32_t showDialog, int32_t presetDenominator) {
  if (FitsLargestSheet(size)) {
    state.scaleDenominator = 1;
    return true;
  }
  DialogResult answer = DialogResult::notShown;
  if (showDialog != 0) {
    state.sheetWidth = Trunc(size.width);
    state.sheetHeight = Trunc(size.height);
    answer = ShowSizeDialog();
  }
  switch (answer) {
    case DialogResult::cancelled: return false;
    case DialogResult::ok:
      // The dialog works in whole millimetres, so the fractions are lost for the sheet too.
      size = {static_cast<double>(state.sheetWidth), static_cast<double>(state.sheetHeight)};
      break;
    case DialogResult::notShown:
      state.scaleDenominator = presetDenominator != 0 ? presetDenominator : defaultDenominator;
      break;
  }
  DivideByDenominator(headerVars, size);
  return true;
}

void StoreGeometry(const HeaderVars& headerVars, const Box& extents, const Size& size, int32_t fullSize) {
  // 0.1 is added so that a product just below a whole number isn't truncated to the next lower one.
  state.sheetRect.right = Trunc(size.width * 100.0 + 0.1);
  state.sheetRect.bottom = Trunc(size.height * 100.0 + 0.1);
  state.sheetWidth = WrapMul(Trunc(size.width), 100);
  state.sheetHeight = WrapMul(Trunc(size.height), 100);
  state.sheetHeightF = size.height * 100.0;
  state.originX = extents.minX * 100.0;
  state.originY = extents.minY * 100.0;
  state.centreX = state.sheetWidth / 2;
  state.centreY = state.sheetHeight / 2;
  state.drawScale = fullSize == 1 ? 1.0 : headerVars.drawingScale;
}

// Sets the size of point marks: 0 means 0.45 percent of the sheet's width, a negative size a percentage of
// it. A negative size remains negative.
void SettlePointSize(HeaderVars& headerVars) {
  double size = headerVars.pdSize;
  if (size == 0.0)
    size = state.sheetWidth * 0.0045 * 100.0;
  else if (size < 0.0)
    size = state.sheetWidth * 0.01 * size * 100.0;
  headerVars.pdSize = 100.0 * (size / state.drawScale);
}

}  // namespace

int32_t SetupSheet(HeaderVars& headerVars, int32_t showDialog, int32_t presetDenominator, int32_t fullSize) {
  const bool hasLimits = headerVars.limMinSet && headerVars.limMaxSet;
  const bool hasExtents = headerVars.extMinSet && headerVars.extMaxSet;
  if (!hasLimits && !hasExtents) return HEXLUME_NOT_A_DRAWING;
  const Box extents = hasExtents ? Extents(headerVars) : Limits(headerVars);
  const Box limits = hasLimits ? Limits(headerVars) : Extents(headerVars);
  state.sheetRect.left = 0;
  state.sheetRect.top = 0;

  const Size drawing = SizeOnSheet(extents, headerVars.drawingScale, fullSize);
  Size size = drawing;
  state.shiftX = 0.0;
  state.shiftY = 0.0;
  // Uses the header's own numbers: if the limits or the extents are missing, their zeros count.
  if (ExtentsFitLimits(headerVars)) {
    size = SizeOnSheet(limits, headerVars.drawingScale, fullSize);
    state.shiftX = CentringShift(size.width, drawing.width);
    state.shiftY = CentringShift(size.height, drawing.height);
  }
  if (!ChooseDenominator(headerVars, size, showDialog, presetDenominator)) return HEXLUME_CANCELLED;
  StoreGeometry(headerVars, extents, size, fullSize);
  SettlePointSize(headerVars);
  return 0;
}

}  // namespace hexlume
