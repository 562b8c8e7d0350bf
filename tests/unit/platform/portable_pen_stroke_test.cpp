// The stroke that is recorded at once against the calls that it stands for.
#include "platform/pen_stroke.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <vector>

#include "support/recorded_words.h"

namespace hexlume::portable_pen_stroke_test {
namespace {

using Strokes = std::function<void(HDC dc, int width, COLORREF color, POINT start, POINT end)>;

// Strokes where the pen before is a stock object, one of our own, and one that was deleted while it was selected.
void DrawWith(const Strokes& stroke, HDC dc) {
  stroke(dc, 0, 0xFF, {10, 20}, {30, 40});
  LineTo(dc, 50, 60);  // from the stroke's end
  const HBRUSH brush = CreateSolidBrush(0x123456);
  SelectObject(dc, brush);
  stroke(dc, -7, 0xFF00, {INT32_MIN, 5}, {INT32_MAX, -5});
  stroke(dc, INT32_MIN, 0, {1, 1}, {1, 1});
  const HPEN own = CreatePen(PS_DASH, 3, 0xFF);
  const HGDIOBJ stock = SelectObject(dc, own);
  stroke(dc, 1, 0xFF0000, {-3, -4}, {-5, -6});
  DeleteObject(own);
  stroke(dc, 2, 0x00FFFF, {7, 8}, {9, 10});
  SelectObject(dc, stock);
  stroke(dc, 4, 0x808080, {70, 80}, {90, 100});
  DeleteObject(brush);
}

TEST(PortablePenStroke, it_is_recorded_like_the_calls) {
  const Words atOnce = RecordedWords([](HDC dc) { DrawWith(StrokeLine, dc); });
  const Words byCalls = RecordedWords([](HDC dc) { DrawWith(StrokeByCalls, dc); });
  EXPECT_EQ(byCalls, atOnce);
}

// Pieces of the metafile end at different places of a stroke.
TEST(PortablePenStroke, thousands_are_recorded_like_the_calls) {
  const auto draw = [](HDC dc, const Strokes& stroke) {
    for (int i = 0; i < 5000; ++i) {
      stroke(dc, i % 3, 0xFF, {i, -i}, {2 * i, i});
      if (i % 7 == 0) MoveToEx(dc, i, i, nullptr);
    }
  };
  EXPECT_EQ(RecordedWords([&](HDC dc) { draw(dc, StrokeByCalls); }),
            RecordedWords([&](HDC dc) { draw(dc, StrokeLine); }));
}

TEST(PortablePenStroke, without_a_context_nothing_happens) {
  StrokeLine(nullptr, 0, 0, {1, 2}, {3, 4});
  const HDC closed = CreateEnhMetaFileA(nullptr, nullptr, nullptr, nullptr);
  DeleteEnhMetaFile(CloseEnhMetaFile(closed));
  StrokeLine(closed, 0, 0, {1, 2}, {3, 4});
}

}  // namespace
}  // namespace hexlume::portable_pen_stroke_test
