#include "tools/hexlume/player_state.h"

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

// Dashes have the same length at every resolution, but are longer if the thinnest pen is wider than a pixel
// at 96 dpi.
void SetDashes(const PlayerState& state) {
  constexpr double hundredthsOfAPixel = 2540.0 / 96;
  std::vector<double> dashes = state.HasThinPen() ? DashesOf(state.pen.style) : std::vector<double>();
  const double pixel = std::max(state.target.hairline, hundredthsOfAPixel * state.mapping.SheetUnit());
  for (double& length : dashes) length *= pixel;
  cairo_set_dash(state.target.context, dashes.data(), static_cast<int>(dashes.size()), 0);
  cairo_set_line_cap(state.target.context, dashes.empty() ? CAIRO_LINE_CAP_ROUND : CAIRO_LINE_CAP_BUTT);
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
  return PenWidth() <= target.hairline;
}

void PlayerState::Stroke() {
  cairo_t* const context = target.context;
  if (pen.style != PlayerPen::null) {
    constexpr double widest = farthestSeen / 2;
    SetColor(context, pen.color);
    cairo_set_line_width(context, std::clamp(PenWidth(), target.hairline, widest));
    cairo_set_line_join(context, CAIRO_LINE_JOIN_ROUND);
    SetDashes(*this);
    cairo_stroke_preserve(context);
  }
  cairo_new_path(context);
}

void PlayerState::FillAndStroke() {
  if (brush.style != PlayerBrush::null) {
    cairo_set_fill_rule(target.context, windingFill ? CAIRO_FILL_RULE_WINDING : CAIRO_FILL_RULE_EVEN_ODD);
    SetColor(target.context, brush.color);
    cairo_fill_preserve(target.context);
  }
  Stroke();
}

void PlayerState::StrokeLine(Point from, Point to) {
  if (HasThinPen()) {
    // The thinnest pen leaves out the last pixel of a line, so a line of length 0 is empty.
    if (from.x == to.x && from.y == to.y) return;
    if (from.x == to.x || from.y == to.y) {
      from = {mapping.InMiddle(from.x), mapping.InMiddle(from.y)};
      to = {mapping.InMiddle(to.x), mapping.InMiddle(to.y)};
    }
  }
  PlayerPath path(target.context);
  path.MoveTo(from);
  path.LineTo(to);
  Stroke();
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
