#include "support/converter_test.h"

#include <algorithm>
#include <cstdio>

#include "driver/bounded_copy.h"

namespace hexlume {

static std::string Call(const char* name, int32_t x, int32_t y) {
  return name + ("(" + std::to_string(x)) + ", " + std::to_string(y) + ")\n";
}

std::string InPen(COLORREF color, const std::string& calls, int32_t width) {
  char pen[64];
  std::snprintf(pen, sizeof pen, "CreatePen(1, PS_SOLID, %d, 0x%06X)\n", static_cast<int>(width),
                static_cast<unsigned>(color));
  return pen + ("SelectObject(1)\n" + calls) + "SelectObject(BLACK_PEN)\nDeleteObject(1)\n";
}

std::string Stroke(COLORREF color, int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t width) {
  return InPen(color, Call("MoveToEx", x1, y1) + Call("LineTo", x2, y2), width);
}

std::string Dot(int32_t x, int32_t y) {
  return "Ellipse(" + std::to_string(x - 1) + ", " + std::to_string(y - 1) + ", " + std::to_string(x) + ", " +
         std::to_string(y) + ")\n";
}

std::string Ends(double x1, double y1, double x2, double y2) {
  return "10 " + std::to_string(x1) + "\n20 " + std::to_string(y1) + "\n11 " + std::to_string(x2) + "\n21 " +
         std::to_string(y2) + "\n";
}

ConverterTest::ConverterTest() {
  state = {};
  ResetConvState();
  state.sheetWidth = 20000;
  state.sheetHeight = 10000;
  state.sheetHeightF = 10000.0;
  state.sheetRect = {0, 0, 20000, 10000};
  state.drawScale = 1.0;
  state.scaleDenominator = 1;
  state.centreX = 10000;
  state.centreY = 5000;
}

void ConverterTest::AddLayer(const char* name, const LineStyle& style, int32_t color) {
  LayerEntry layer = {};
  BoundedCopy(layer.name, name);
  layer.family = style.family;
  layer.pattern = style.pattern;
  layer.width = style.width;
  layer.color = color;
  state.layers.Add(layer);
  state.layerCount = static_cast<int32_t>(state.layers.size());
}

void ConverterTest::ExcludeLayer(const char* name) {
  ExcludedLayer layer = {};
  BoundedCopy(layer.name, name);
  state.excludedLayers.Add(layer);
  state.excludedLayerCount = static_cast<int32_t>(state.excludedLayers.size());
}

void ConverterTest::ExcludeFamily(int32_t family) {
  state.excludedLtypes.push_back(family);
  state.excludedLtypeCount = static_cast<int32_t>(state.excludedLtypes.size());
}

void ConverterTest::SetInsertLayer(const char* name) {
  BoundedCopy(state.insertLayer, name);
}

void ConverterTest::DefineLtypes(std::initializer_list<int32_t> slots) {
  for (const int32_t slot : slots) DefineLtype(slot, {});
}

void ConverterTest::DefineLtype(int32_t slot, std::initializer_list<double> dashes) {
  state.ltypes.resize(ltypeCount);
  LtypeEntry& entry = state.ltypes.at(static_cast<size_t>(slot));
  std::copy(dashes.begin(), dashes.end(), entry.dashes);
  entry.defined = 1;
}

}  // namespace hexlume
