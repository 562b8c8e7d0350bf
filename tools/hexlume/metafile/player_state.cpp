#include "tools/hexlume/metafile/player_state.h"

#include <algorithm>
#include <cmath>

namespace hexlume {
namespace {

struct StockRow {
  uint32_t handle;
  PlayerObject object;
};

// Made on first use, because a std::string can't be constant.
const std::vector<StockRow>& StockRows() {
  static const std::vector<StockRow> rows = {
      {0x80000000, PlayerBrush{PlayerBrush::solid, 0xFFFFFF}},  // WHITE_BRUSH
      {0x80000001, PlayerBrush{PlayerBrush::solid, 0xC0C0C0}},  // LTGRAY_BRUSH
      {0x80000002, PlayerBrush{PlayerBrush::solid, 0x808080}},  // GRAY_BRUSH
      {0x80000003, PlayerBrush{PlayerBrush::solid, 0x404040}},  // DKGRAY_BRUSH
      {0x80000004, PlayerBrush{PlayerBrush::solid, 0x000000}},  // BLACK_BRUSH
      {0x80000005, PlayerBrush{PlayerBrush::null, 0}},          // NULL_BRUSH
      {0x80000006, PlayerPen{PlayerPen::solid, 0, 0xFFFFFF}},   // WHITE_PEN
      {0x80000007, PlayerPen{PlayerPen::solid, 0, 0x000000}},   // BLACK_PEN
      {0x80000008, PlayerPen{PlayerPen::null, 0, 0}},           // NULL_PEN
      {0x8000000D, PlayerFont{}},                               // SYSTEM_FONT
  };
  return rows;
}

// The dashes and gaps of a thin pen, in pixels at 96 dpi.
const std::vector<double>& DashesOf(uint32_t style) {
  static const std::vector<double> none, dash{18, 6}, dot{3, 3}, dashDot{9, 6, 3, 6},
      dashDotDot{9, 3, 3, 3, 3, 3};
  switch (style) {
    case PlayerPen::dash: return dash;
    case PlayerPen::dot: return dot;
    case PlayerPen::dashDot: return dashDot;
    case PlayerPen::dashDotDot: return dashDotDot;
    default: return none;
  }
}

}  // namespace

std::optional<PlayerObject> StockObject(uint32_t handle) {
  const auto& rows = StockRows();
  const auto found =
      std::find_if(rows.begin(), rows.end(), [handle](const StockRow& row) { return row.handle == handle; });
  if (found == rows.end()) return std::nullopt;
  return found->object;
}

double PlayerState::PenWidth() const {
  return std::fabs(static_cast<double>(pen.width)) * mapping.UnitX();
}

bool PlayerState::HasThinPen() const {
  return PenWidth() <= canvas.Measures().hairline;
}

// Dashes have the same length at every resolution, but are longer if the thinnest pen is wider than a pixel
// at 96 dpi.
StrokeStyle PlayerState::Style() const {
  constexpr double hundredthsOfAPixel = 2540.0 / 96;
  const CanvasMeasures& measures = canvas.Measures();
  StrokeStyle style{pen.color, std::clamp(PenWidth(), measures.hairline, measures.limits.reach / 2), {}};
  if (HasThinPen()) style.dashes = DashesOf(pen.style);
  const double pixel = std::max(measures.hairline, hundredthsOfAPixel * mapping.SheetUnit());
  for (double& length : style.dashes) length *= pixel;
  return style;
}

void PlayerState::Stroke(const PlayerPath& path) {
  if (pen.style != PlayerPen::null) canvas.Stroke(path, Style());
}

void PlayerState::FillAndStroke(const PlayerPath& path) {
  if (brush.style != PlayerBrush::null) canvas.Fill(path, brush.color, windingFill);
  Stroke(path);
}

void PlayerState::StrokeLine(Point from, Point to) {
  if (pen.style == PlayerPen::null) return;
  if (HasThinPen()) {
    // The thinnest pen leaves out the last pixel of a line, so a line of length 0 is empty.
    if (from == to) return;
    if (from.x == to.x || from.y == to.y) {
      from = {mapping.InMiddle(from.x), mapping.InMiddle(from.y)};
      to = {mapping.InMiddle(to.x), mapping.InMiddle(to.y)};
    }
  }
  if (IsWithinReach(from) && IsWithinReach(to)) return canvas.DrawLine(from, to, Style());
  PlayerPath path = EmptyPath();
  path.MoveTo(from);
  path.LineTo(to);
  canvas.Stroke(path, Style());
}

bool PlayerState::IsWithinReach(Point point) const {
  const double reach = canvas.Measures().limits.reach;
  return std::fabs(point.x) <= reach && std::fabs(point.y) <= reach;
}

void PlayerState::Select(const PlayerObject& object) {
  if (const auto* const newPen = std::get_if<PlayerPen>(&object)) pen = *newPen;
  if (const auto* const newBrush = std::get_if<PlayerBrush>(&object)) brush = *newBrush;
  if (const auto* const newFont = std::get_if<PlayerFont>(&object)) font = *newFont;
}

void PlayerState::Select(uint32_t handle) {
  if (const auto stock = StockObject(handle)) return Select(*stock);
  const auto found = objects.find(handle);
  if (found != objects.end()) Select(found->second);
}

}  // namespace hexlume
