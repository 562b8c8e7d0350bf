#include "tools/hexlume/metafile/metafile_player.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "tools/hexlume/metafile/emf_record.h"
#include "tools/hexlume/metafile/player_canvas.h"
#include "tools/hexlume/metafile/player_state.h"
#include "tools/hexlume/metafile/utf16.h"

namespace hexlume {
namespace {

constexpr double pi = 3.14159265358979324;

// Contents that several kinds of records have in common.

Point PointAt(const EmfRecord& record, size_t offset) {
  return {static_cast<double>(record.Int(offset)), static_cast<double>(record.Int(offset + 4))};
}

Point Place(const PlayerState& state, Point logical) {
  return state.mapping.FromLogical(logical.x, logical.y);
}

// Returns the points of a record, with 16 (narrow) or 32 bits per coordinate.
std::vector<Point> PointsOf(const EmfRecord& record, const PlayerState& state, bool narrow) {
  constexpr size_t first = 28;
  const size_t count = record.UInt(24);
  record.RequireItems(first, count, narrow ? 4 : 8);
  std::vector<Point> points(count);
  for (size_t i = 0; i < count; ++i) {
    points[i] = narrow ? Point{static_cast<double>(record.Short(first + 4 * i)),
                               static_cast<double>(record.Short(first + 4 * i + 2))}
                       : PointAt(record, first + 8 * i);
    points[i] = Place(state, points[i]);
  }
  return points;
}

struct Ellipse {
  Point centre;
  double radiusX, radiusY;
};

Ellipse EllipseAt(const EmfRecord& record, const PlayerState& state, size_t offset) {
  const Point a = Place(state, PointAt(record, offset)), b = Place(state, PointAt(record, offset + 8));
  return {{(a.x + b.x) / 2, (a.y + b.y) / 2}, std::fabs(b.x - a.x) / 2, std::fabs(b.y - a.y) / 2};
}

// Returns the parameter angle at which the line from the centre to a point meets the ellipse.
double AngleOn(const Ellipse& ellipse, Point point) {
  const double x = point.x - ellipse.centre.x, y = point.y - ellipse.centre.y;
  return std::atan2(y * ellipse.radiusX, x * ellipse.radiusY);
}

// The kinds of records, in the order of the table below.

void DrawBezier(PlayerState& state, const std::vector<Point>& points) {
  if (points.size() < 4) return;
  PlayerPath path = state.EmptyPath();
  path.MoveTo(points[0]);
  for (size_t i = 1; i + 3 <= points.size(); i += 3) path.CurveTo(points[i], points[i + 1], points[i + 2]);
  state.Stroke(path);
}

void PlayPolyBezier(const EmfRecord& record, PlayerState& state) {
  DrawBezier(state, PointsOf(record, state, false));
}

void PlayPolyBezier16(const EmfRecord& record, PlayerState& state) {
  DrawBezier(state, PointsOf(record, state, true));
}

void DrawPolygon(PlayerState& state, const std::vector<Point>& points) {
  if (points.size() < 2) return;
  PlayerPath path = state.EmptyPath();
  path.MoveTo(points[0]);
  for (size_t i = 1; i < points.size(); ++i) path.LineTo(points[i]);
  path.Close();
  state.FillAndStroke(path);
}

void PlayPolygon(const EmfRecord& record, PlayerState& state) {
  DrawPolygon(state, PointsOf(record, state, false));
}

void PlayPolygon16(const EmfRecord& record, PlayerState& state) {
  DrawPolygon(state, PointsOf(record, state, true));
}

void PlaySetPixelV(const EmfRecord& record, PlayerState& state) {
  const Point at = Place(state, PointAt(record, 8));
  if (!state.IsWithinReach(at)) return;
  state.canvas.DrawDot({state.mapping.InMiddle(at.x), state.mapping.InMiddle(at.y)}, record.UInt(16));
}

void PlaySetMapMode(const EmfRecord& record, PlayerState& state) {
  state.mapping.SetMode(record.UInt(8));
}

void PlaySetBkMode(const EmfRecord& record, PlayerState& state) {
  constexpr uint32_t opaque = 2;
  state.opaqueText = record.UInt(8) == opaque;
}

void PlaySetPolyFillMode(const EmfRecord& record, PlayerState& state) {
  constexpr uint32_t winding = 2;
  state.windingFill = record.UInt(8) == winding;
}

void PlaySetTextAlign(const EmfRecord& record, PlayerState& state) {
  state.textAlign = record.UInt(8);
}

void PlaySetTextColor(const EmfRecord& record, PlayerState& state) {
  state.textColor = record.UInt(8);
}

void PlayMoveToEx(const EmfRecord& record, PlayerState& state) {
  state.current = PointAt(record, 8);
}

void PlaySelectObject(const EmfRecord& record, PlayerState& state) {
  state.Select(record.UInt(8));
}

void PlayCreatePen(const EmfRecord& record, PlayerState& state) {
  state.objects[record.UInt(8)] = PlayerPen{record.UInt(12), record.Int(16), record.UInt(24)};
}

void PlayCreateBrushIndirect(const EmfRecord& record, PlayerState& state) {
  state.objects[record.UInt(8)] = PlayerBrush{record.UInt(12), record.UInt(16)};
}

void PlayDeleteObject(const EmfRecord& record, PlayerState& state) {
  state.objects.erase(record.UInt(8));
}

// The angles count as if Y grew downward, whatever the map mode is.
void PlayAngleArc(const EmfRecord& record, PlayerState& state) {
  const Point centre = PointAt(record, 8);
  const double radius = record.UInt(16), start = record.Float(20);
  double sweep = record.Float(24);
  if (!std::isfinite(start) || !std::isfinite(sweep)) return;
  // More than one full turn would only be repeated.
  if (std::fabs(sweep) > 360) sweep = std::copysign(360 + std::fmod(std::fabs(sweep), 360), sweep);
  const double startAngle = std::fmod(start, 360) * pi / 180, turn = sweep * pi / 180;
  const double end = startAngle + turn;
  const double sense = state.mapping.IsUpward() ? 1 : -1;
  PlayerPath path = state.EmptyPath();
  path.MoveTo(Place(state, state.current));
  path.ArcTo(Place(state, centre), radius * state.mapping.UnitX(), radius * state.mapping.UnitY(),
             sense * startAngle, sense * turn);
  state.Stroke(path);
  state.current = {centre.x + radius * std::cos(end), centre.y - radius * std::sin(end)};
}

void PlayEllipse(const EmfRecord& record, PlayerState& state) {
  const Ellipse ellipse = EllipseAt(record, state, 8);
  PlayerPath path = state.EmptyPath();
  path.ArcTo(ellipse.centre, ellipse.radiusX, ellipse.radiusY, 0, 2 * pi);
  path.Close();
  state.FillAndStroke(path);
}

// The direction is that of the picture, whatever the direction of Y in the map mode is.
void PlayArc(const EmfRecord& record, PlayerState& state) {
  const Ellipse ellipse = EllipseAt(record, state, 8);
  const double start = AngleOn(ellipse, Place(state, PointAt(record, 24)));
  double sweep = AngleOn(ellipse, Place(state, PointAt(record, 32))) - start;
  if (state.clockwiseArcs && sweep <= 0) sweep += 2 * pi;
  if (!state.clockwiseArcs && sweep >= 0) sweep -= 2 * pi;
  PlayerPath path = state.EmptyPath();
  path.ArcTo(ellipse.centre, ellipse.radiusX, ellipse.radiusY, start, sweep);
  state.Stroke(path);
}

void PlayLineTo(const EmfRecord& record, PlayerState& state) {
  const Point to = PointAt(record, 8);
  state.StrokeLine(Place(state, state.current), Place(state, to));
  state.current = to;
}

void PlaySetArcDirection(const EmfRecord& record, PlayerState& state) {
  constexpr uint32_t clockwise = 2;
  state.clockwiseArcs = record.UInt(8) == clockwise;
}

// A filled region is in logical units, a clip region in device units.
void PlayFillRgn(const EmfRecord& record, PlayerState& state) {
  const auto brush = state.objects.find(record.UInt(28));
  const std::optional<PlayerObject> object =
      brush != state.objects.end() ? brush->second : StockObject(record.UInt(28));
  const auto rectangles = EmfRegionAt(record, 32, record.UInt(24));
  const auto* const fill = object ? std::get_if<PlayerBrush>(&*object) : nullptr;
  if (!fill || fill->style == PlayerBrush::null) return;
  const PlayerMapping& mapping = state.mapping;
  CanvasBoxes boxes;
  boxes.reserve(rectangles.size());
  for (const EmfRectangle& box : rectangles)
    mapping.AddBox(boxes, mapping.FromLogical(box.left, box.top), mapping.FromLogical(box.right, box.bottom));
  state.canvas.FillBoxes(boxes, fill->color);
}

void PlayExtSelectClipRgn(const EmfRecord& record, PlayerState& state) {
  const uint32_t size = record.UInt(8), mode = record.UInt(12);
  if (size != 0) {
    state.clip.Combine(EmfRegionAt(record, 16, size), mode);
  } else if (mode == PlayerClip::copy) {
    state.clip.Clear();
  }
  state.clip.Apply(state.canvas, state.mapping);
}

std::string FaceName(const EmfRecord& record, size_t offset, size_t units) {
  std::string name;
  for (size_t i = 0; i < units; ++i) {
    const uint32_t unit = record.UShort(offset + 2 * i);
    if (unit == 0) break;
    // Font names have no characters beyond U+FFFF.
    if (!IsHighSurrogate(unit) && !IsLowSurrogate(unit)) AppendUtf8(name, unit);
  }
  return name;
}

void PlayExtCreateFontIndirectW(const EmfRecord& record, PlayerState& state) {
  constexpr size_t faceOffset = 40, faceUnits = 32;
  constexpr uint8_t shiftJis = 128;
  record.RequireItems(faceOffset, faceUnits, 2);
  PlayerFont font;
  font.height = record.Int(12);
  font.width = record.Int(16);
  font.escapement = record.Int(20);
  font.weight = record.Int(28);
  font.italic = record.Byte(32) != 0;
  font.underline = record.Byte(33) != 0;
  font.strikeOut = record.Byte(34) != 0;
  font.face = FaceName(record, faceOffset, faceUnits);
  font.japanese = record.Byte(35) == shiftJis;
  state.objects[record.UInt(8)] = font;
}

void AddAdvances(const EmfRecord& record, size_t offset, size_t count, std::vector<double>& advances) {
  record.RequireItems(offset, count, 4);
  for (size_t i = 0; i < count; ++i) advances[i] = record.Int(offset + 4 * i);
}

std::vector<TextCharacter> CharactersOf(const EmfRecord& record, size_t offset,
                                        const std::vector<double>& advances) {
  record.RequireItems(offset, advances.size(), 2);
  std::vector<TextCharacter> characters;
  characters.reserve(advances.size());
  for (size_t i = 0; i < advances.size(); ++i) {
    const uint32_t unit = record.UShort(offset + 2 * i);
    const uint32_t before = i > 0 ? record.UShort(offset + 2 * (i - 1)) : 0;
    if (IsLowSurrogate(unit) && IsHighSurrogate(before)) {
      characters.back() = {JoinSurrogates(before, unit), characters.back().advance + advances[i]};
    } else {
      characters.push_back({unit, advances[i]});
    }
  }
  return characters;
}

void PlayExtTextOutW(const EmfRecord& record, PlayerState& state) {
  const Point reference = PointAt(record, 36);
  const uint32_t count = record.UInt(44), offset = record.UInt(48), advancesOffset = record.UInt(72);
  record.RequireItems(offset, count, 2);
  std::vector<double> advances(count);
  PlayerText text;
  text.hasAdvances = advancesOffset != 0;
  if (text.hasAdvances) AddAdvances(record, advancesOffset, count, advances);
  text.characters = CharactersOf(record, offset, advances);
  text.align = state.textAlign;
  text.color = state.textColor;
  text.opaque = state.opaqueText;
  // Like AngleArc, the angle counts as if Y grew downward.
  const double escapement = state.font.escapement * pi / 1800;
  PaintText(
      state.canvas, state.font, text,
      {Place(state, reference), state.mapping.IsUpward() ? escapement : -escapement, state.mapping.UnitX()});
}

struct Row {
  RecordType type;
  void (*play)(const EmfRecord& record, PlayerState& state);
};

constexpr Row rows[] = {
    {RecordType::polyBezier, PlayPolyBezier},
    {RecordType::polygon, PlayPolygon},
    {RecordType::setPixelV, PlaySetPixelV},
    {RecordType::setMapMode, PlaySetMapMode},
    {RecordType::setBkMode, PlaySetBkMode},
    {RecordType::setPolyFillMode, PlaySetPolyFillMode},
    {RecordType::setTextAlign, PlaySetTextAlign},
    {RecordType::setTextColor, PlaySetTextColor},
    {RecordType::moveToEx, PlayMoveToEx},
    {RecordType::selectObject, PlaySelectObject},
    {RecordType::createPen, PlayCreatePen},
    {RecordType::createBrushIndirect, PlayCreateBrushIndirect},
    {RecordType::deleteObject, PlayDeleteObject},
    {RecordType::angleArc, PlayAngleArc},
    {RecordType::ellipse, PlayEllipse},
    {RecordType::arc, PlayArc},
    {RecordType::lineTo, PlayLineTo},
    {RecordType::setArcDirection, PlaySetArcDirection},
    {RecordType::fillRgn, PlayFillRgn},
    {RecordType::extSelectClipRgn, PlayExtSelectClipRgn},
    {RecordType::extCreateFontIndirectW, PlayExtCreateFontIndirectW},
    {RecordType::extTextOutW, PlayExtTextOutW},
    {RecordType::polyBezier16, PlayPolyBezier16},
    {RecordType::polygon16, PlayPolygon16},
};

// Returns false if the record's contents don't fit its size.
bool PlayRecord(const EmfRecord& record, PlayerState& state) {
  const auto row = std::find_if(std::begin(rows), std::end(rows),
                                [&record](const Row& each) { return each.type == record.Type(); });
  if (row == std::end(rows)) return true;
  try {
    row->play(record, state);
    return true;
  } catch (const MalformedRecord&) {
    return false;
  }
}

// Plays the records after the header. Returns false if one of them is malformed.
bool PlayRecords(const uint8_t* bytes, size_t size, size_t offset, PlayerState& state) {
  for (bool sound = true;;) {
    const EmfRecord record(bytes + offset, size - offset);
    if (record.Type() == RecordType::eof) return sound;
    if (!PlayRecord(record, state)) sound = false;
    offset += record.Size();
  }
}

}  // namespace

bool ReadMetafileFrame(const uint8_t* bytes, size_t size, MetafileFrame& frame) {
  try {
    frame = MeasuresOf(EmfRecord(bytes, size)).frame;
    return true;
  } catch (const MalformedRecord&) {
    return false;
  }
}

bool PlayMetafile(const uint8_t* bytes, size_t size, PlayerCanvas& canvas) {
  try {
    const EmfRecord header(bytes, size);
    const MetafileMeasures measures = MeasuresOf(header);
    if (measures.frame.right <= measures.frame.left || measures.frame.bottom <= measures.frame.top)
      return true;
    PlayerState state(measures, canvas);
    return PlayRecords(bytes, size, header.Size(), state);
  } catch (const MalformedRecord&) {
    return false;
  }
}

}  // namespace hexlume
