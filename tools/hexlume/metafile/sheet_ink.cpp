#include "tools/hexlume/metafile/sheet_ink.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "tools/hexlume/metafile/emf_record.h"
#include "tools/hexlume/metafile/emf_region.h"
#include "tools/hexlume/metafile/player_mapping.h"

namespace hexlume {
namespace {

// A box on the sheet, in hundredths of a millimetre from the frame's left and top edge.
class InkBox {
 public:
  void Add(Point point) {
    box = {std::min(box.left, point.x), std::min(box.top, point.y), std::max(box.right, point.x),
           std::max(box.bottom, point.y)};
  }
  void Grow(double x, double y) { box = {box.left - x, box.top - y, box.right + x, box.bottom + y}; }

  bool IsEmpty() const { return box.left > box.right; }
  bool Touches(double width, double height) const {
    return box.left <= width && box.right >= 0 && box.top <= height && box.bottom >= 0;
  }

 private:
  static constexpr double infinity = std::numeric_limits<double>::infinity();
  CanvasBox box{infinity, infinity, -infinity, -infinity};
};

class InkFinder {
 public:
  explicit InkFinder(const MetafileMeasures& measures)
      : width(static_cast<double>(measures.frame.right) - measures.frame.left),
        height(static_cast<double>(measures.frame.bottom) - measures.frame.top),
        mapping(measures, {width, height, 1, false, {1, 1}}) {}

  SheetInk Ink() const { return ink; }

  void Read(const EmfRecord& record) {
    InkBox box;
    switch (record.Type()) {
      case RecordType::setMapMode: mapping.SetMode(record.UInt(8)); return;
      case RecordType::moveToEx: current = PointAt(record, 8); return;
      case RecordType::extSelectClipRgn: ReadClip(record); return;
      case RecordType::setPixelV: box.Add(Place(PointAt(record, 8))); break;
      case RecordType::lineTo: AddLine(record, box); break;
      case RecordType::angleArc: AddAngleArc(record, box); break;
      case RecordType::ellipse:
      case RecordType::arc:
        box.Add(Place(PointAt(record, 8)));
        box.Add(Place(PointAt(record, 16)));
        break;
      case RecordType::polyBezier:
      case RecordType::polygon: AddPoints(record, box, false); break;
      case RecordType::polyBezier16:
      case RecordType::polygon16: AddPoints(record, box, true); break;
      case RecordType::fillRgn:
        for (const EmfRectangle& rectangle : EmfRegionAt(record, 32, record.UInt(24)))
          AddRectangle(rectangle, box, [this](Point point) { return Place(point); });
        break;
      case RecordType::extTextOutW: AddText(record, box); break;
      default: return;
    }
    if (!box.IsEmpty()) Count(box);
  }

 private:
  static Point PointAt(const EmfRecord& record, size_t offset) {
    return {static_cast<double>(record.Int(offset)), static_cast<double>(record.Int(offset + 4))};
  }

  Point Place(Point logical) const { return mapping.FromLogical(logical.x, logical.y); }

  template <typename Place>
  static void AddRectangle(const EmfRectangle& rectangle, InkBox& box, Place place) {
    box.Add(place(Point{static_cast<double>(rectangle.left), static_cast<double>(rectangle.top)}));
    box.Add(place(Point{static_cast<double>(rectangle.right), static_cast<double>(rectangle.bottom)}));
  }

  void Count(const InkBox& box) {
    const bool isWithin = isClipWithin && box.Touches(width, height);
    if (ink != SheetInk::within) ink = isWithin ? SheetInk::within : SheetInk::beside;
  }

  void AddLine(const EmfRecord& record, InkBox& box) {
    const Point to = PointAt(record, 8);
    box.Add(Place(current));
    box.Add(Place(to));
    current = to;
  }

  // The line to the start of the arc isn't longer than one to the circle's farthest point.
  void AddAngleArc(const EmfRecord& record, InkBox& box) {
    const Point centre = PointAt(record, 8);
    const double radius = record.UInt(16), end = (record.Float(20) + double{record.Float(24)}) * pi / 180;
    box.Add(Place(centre));
    box.Grow(radius * mapping.UnitX(), radius * mapping.UnitY());
    box.Add(Place(current));
    if (std::isfinite(end)) current = {centre.x + radius * std::cos(end), centre.y - radius * std::sin(end)};
  }

  void AddPoints(const EmfRecord& record, InkBox& box, bool narrow) const {
    constexpr size_t first = 28;
    const size_t count = record.UInt(24);
    record.RequireItems(first, count, narrow ? 4 : 8);
    for (size_t i = 0; i < count; ++i) {
      const size_t offset = first + (narrow ? 4 : 8) * i;
      box.Add(Place(narrow ? Point{double{record.Short(offset) * 1.0}, double{record.Short(offset + 2) * 1.0}}
                           : PointAt(record, offset)));
    }
  }

  // A text can go on in any direction. No character is higher than twice the shortest text's length. The bounds in the
  // record aren't used, as systems write them in different units.
  void AddText(const EmfRecord& record, InkBox& box) const {
    const uint32_t count = record.UInt(44), advances = record.UInt(72);
    double length = 0;
    if (advances != 0) {
      record.RequireItems(advances, count, 4);
      for (size_t i = 0; i < count; ++i)
        length += std::fabs(static_cast<double>(record.Int(advances + 4 * i)));
    }
    box.Add(Place(PointAt(record, 36)));
    box.Grow(2 * length * mapping.UnitX(), 2 * length * mapping.UnitY());
  }

  // Of a region only the bounds are looked at, and of combined regions only the last one.
  void ReadClip(const EmfRecord& record) {
    const uint32_t size = record.UInt(8);
    isClipWithin = true;
    if (size == 0) return;
    InkBox box;
    for (const EmfRectangle& rectangle : EmfRegionAt(record, 16, size))
      AddRectangle(rectangle, box, [this](Point point) { return mapping.FromDevice(point.x, point.y); });
    isClipWithin = box.Touches(width, height);
  }

  static constexpr double pi = 3.14159265358979324;

  double width, height;
  PlayerMapping mapping;
  Point current{0, 0};
  bool isClipWithin = true;
  SheetInk ink = SheetInk::none;
};

void ReadRecord(const EmfRecord& record, InkFinder& finder) {
  try {
    finder.Read(record);
  } catch (const MalformedRecord&) {
    // The next record may be sound.
  }
}

}  // namespace

SheetInk FindInk(const uint8_t* metafile, size_t size) {
  try {
    const EmfRecord header(metafile, size);
    const MetafileMeasures measures = MeasuresOf(header);
    if (measures.frame.right <= measures.frame.left || measures.frame.bottom <= measures.frame.top)
      return SheetInk::none;
    InkFinder finder(measures);
    for (size_t offset = header.Size(); finder.Ink() != SheetInk::within;) {
      const EmfRecord record(metafile + offset, size - offset);
      if (record.Type() == RecordType::eof) break;
      ReadRecord(record, finder);
      offset += record.Size();
    }
    return finder.Ink();
  } catch (const MalformedRecord&) {
    return SheetInk::none;
  }
}

}  // namespace hexlume
