// A known record for tests of the converters and their rules, and what they draw as text.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>
#include <string>

#include "canvas/canvas.h"
#include "driver/conv_state.h"
#include "driver/text_stream.h"
#include "entities/conversion_run.h"
#include "entities/converter_rules.h"

namespace hexlume {

constexpr COLORREF black = 0x000000;
constexpr COLORREF red = 0x0000FF;
constexpr COLORREF green = 0x00FF00;
constexpr COLORREF cyan = 0xFFFF00;
constexpr COLORREF blue = 0xFF0000;
constexpr COLORREF magenta = 0xFF00FF;
constexpr COLORREF countColor = 0x000007;  // of the colour index -1

// What the strokes of one pen leave in a metafile.
std::string InPen(COLORREF color, const std::string& calls, int32_t width = 0);
std::string Stroke(COLORREF color, int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t width = 0);

// A dot of a dash pattern: its box goes a unit to each side, and the record is smaller by one at the right
// and the top.
std::string Dot(int32_t x, int32_t y);

// The groups 10, 20, 11 and 21 of a line.
std::string Ends(double x1, double y1, double x2, double y2);

// A sheet of 200 x 100 mm at scale 1, seen as a whole: sheet X = 100 x, sheet Y = 100 y - 10000. There are
// neither layers nor line types, and the insert neither scales nor turns.
class ConverterTest : public testing::Test {
 protected:
  ConverterTest();

  static void AddLayer(const char* name, const LineStyle& style, int32_t color);
  static void ExcludeLayer(const char* name);
  static void ExcludeFamily(int32_t family);
  static void SetInsertLayer(const char* name);
  // The slots of ltypes with a record in the drawing. Their dashes don't matter.
  static void DefineLtypes(std::initializer_list<int32_t> slots);
  // A slot with a record of these elements.
  static void DefineLtype(int32_t slot, std::initializer_list<double> dashes);

  // What a converter is called with: the stream at hand and the fields below. For the fields of its own
  // scope, which are 0 by default, a test writes DrawBlockLine({RunOn(canvas), blockOriginX, blockOriginY}).
  ConversionRun RunOn(Canvas canvas) {
    return {stream, canvas, headerVars, view, wholeTextClip, wholeSheet, halfWidthFont};
  }

  TextStream stream;
  HeaderVars headerVars;
  ViewRect view = {0, 0, 20000, 10000};
  int32_t wholeTextClip = 0;
  int32_t wholeSheet = 0;
  int32_t halfWidthFont = 0;
  int32_t result = -1;  // the converter's
};

}  // namespace hexlume
