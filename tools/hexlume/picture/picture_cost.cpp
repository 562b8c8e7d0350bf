#include "tools/hexlume/picture/picture_cost.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>
#include <vector>

#include "tools/hexlume/metafile/emf_record.h"
#include "tools/hexlume/metafile/emf_region.h"
#include "tools/hexlume/metafile/player_mapping.h"
#include "tools/hexlume/picture/picture_work.h"

namespace hexlume {
namespace {

// Steps of Wine's GDI, which is slower than that of Windows. 32-bit programs pay most for each call.
constexpr double stepsOfRecord = 500;
constexpr double stepsOfClipBox = 10;
constexpr double stepsOfBox = 1500;
constexpr double stepsOfFilledPixel = 0.3;

class PictureCost {
 public:
  PictureCost(const MetafileMeasures& measures, PixelSize size, PictureWork pictureWork)
      : width(size.width),
        height(size.height),
        mapping(measures, {width, height, 1, true, {1, 1}}),
        work(pictureWork) {}

  void Read(const EmfRecord& record) {
    work.Count(stepsOfRecord);
    switch (record.Type()) {
      case RecordType::setMapMode: mapping.SetMode(record.UInt(8)); break;
      case RecordType::moveToEx: current = PointAt(record, 8); break;
      case RecordType::createPen: penWidths[record.UInt(8)] = record.Int(16); break;
      case RecordType::selectObject: Select(record.UInt(8)); break;
      case RecordType::createBrushIndirect:
      case RecordType::extCreateFontIndirectW:
      case RecordType::deleteObject: Forget(record); break;
      case RecordType::extSelectClipRgn: ReadClip(record); break;
      case RecordType::lineTo: CountLine(record); break;
      case RecordType::ellipse:
      case RecordType::arc: CountCurve(Place(PointAt(record, 8)), Place(PointAt(record, 16))); break;
      case RecordType::angleArc: CountAngleArc(record); break;
      case RecordType::polyBezier:
      case RecordType::polygon: CountPoints(record, false); break;
      case RecordType::polyBezier16:
      case RecordType::polygon16: CountPoints(record, true); break;
      case RecordType::fillRgn: CountBoxes(record); break;
      case RecordType::extTextOutW: CountText(record); break;
      default: break;
    }
  }

 private:
  static Point PointAt(const EmfRecord& record, size_t offset) {
    return {static_cast<double>(record.Int(offset)), static_cast<double>(record.Int(offset + 4))};
  }

  Point Place(Point logical) const { return mapping.FromLogical(logical.x, logical.y); }

  // Objects. A handle that isn't a pen has no width.

  void Select(uint32_t handle) {
    constexpr uint32_t blackPen = 0x80000007;
    const auto pen = penWidths.find(handle);
    if (pen != penWidths.end())
      penWidth = std::max(1.0, pen->second * mapping.UnitX());
    else if (handle == blackPen)
      penWidth = 1;
  }

  void Forget(const EmfRecord& record) {
    const bool isFont = record.Type() == RecordType::extCreateFontIndirectW;
    penWidths.erase(record.UInt(8));
    if (isFont) fontHeight = std::fabs(record.Int(12) * mapping.UnitY());
  }

  void ReadClip(const EmfRecord& record) {
    const uint32_t size = record.UInt(8);
    clipBoxes = size == 0 ? 0 : static_cast<double>(EmfRegionAt(record, 16, size).size());
    work.Count(clipBoxes * stepsOfBox);
  }

  // Strokes. The length within the picture doesn't matter to curves, which are divided as a whole.

  // An area that is covered, at most the picture's.
  void CountArea(double across, double down) {
    work.Count(std::min(across, width) * std::min(down, height) * stepsOfFilledPixel);
  }

  void CountStroke(double length) {
    constexpr double stepsOfThin = 1500, stepsOfThinPixel = 2, stepsOfWide = 15000, stepsOfWidePixel = 30;
    work.Count(clipBoxes * stepsOfClipBox);
    if (penWidth <= 1) return work.Count(stepsOfThin + length * stepsOfThinPixel);
    work.Count(stepsOfWide + length * stepsOfWidePixel);
    CountArea(length, penWidth);
  }

  void CountLine(const EmfRecord& record) {
    const Point from = Place(current), to = Place(PointAt(record, 8));
    CountStroke(std::max(LengthWithin(from.x, to.x, width), LengthWithin(from.y, to.y, height)));
    current = PointAt(record, 8);
  }

  void CountCurve(Point corner, Point opposite) {
    constexpr double stepsOfCurve = 3000, stepsOfPixel = 30;
    const double length = 2 * (std::fabs(corner.x - opposite.x) + std::fabs(corner.y - opposite.y));
    work.Count(stepsOfCurve + length * stepsOfPixel);
    CountStroke(std::min(length, 2 * (width + height)));
  }

  void CountAngleArc(const EmfRecord& record) {
    const Point centre = PointAt(record, 8);
    const double radius = record.UInt(16);
    CountCurve(Place({centre.x - radius, centre.y - radius}), Place({centre.x + radius, centre.y + radius}));
  }

  // The sides of a polygon, and the area around it.
  void CountPoints(const EmfRecord& record, bool narrow) {
    constexpr size_t first = 28;
    const size_t count = record.UInt(24), size = narrow ? 4 : 8;
    record.RequireItems(first, count, size);
    Point least{width, height}, most{0, 0}, before{0, 0};
    for (size_t i = 0; i < count; ++i) {
      const size_t at = first + size * i;
      const Point point =
          Place(narrow ? Point{1.0 * record.Short(at), 1.0 * record.Short(at + 2)} : PointAt(record, at));
      if (i > 0)
        CountStroke(
            std::max(LengthWithin(before.x, point.x, width), LengthWithin(before.y, point.y, height)));
      least = {std::min(least.x, point.x), std::min(least.y, point.y)};
      most = {std::max(most.x, point.x), std::max(most.y, point.y)};
      before = point;
    }
    if (count > 0) CountArea(LengthWithin(least.x, most.x, width), LengthWithin(least.y, most.y, height));
  }

  void CountBoxes(const EmfRecord& record) {
    const std::vector<EmfRectangle> boxes = EmfRegionAt(record, 32, record.UInt(24));
    work.Count(static_cast<double>(boxes.size()) * stepsOfBox + clipBoxes * stepsOfClipBox);
    for (const EmfRectangle& box : boxes) {
      const Point corner = mapping.FromLogical(box.left, box.top);
      const Point opposite = mapping.FromLogical(box.right, box.bottom);
      CountArea(LengthWithin(corner.x, opposite.x, width), LengthWithin(corner.y, opposite.y, height));
    }
  }

  void CountText(const EmfRecord& record) {
    constexpr double stepsOfText = 3000, stepsOfCharacter = 1500;
    const double count = record.UInt(44), side = std::min(fontHeight, 2 * (width + height));
    work.Count(stepsOfText + clipBoxes * stepsOfClipBox +
               count * (stepsOfCharacter + side * side * stepsOfFilledPixel));
  }

  double width, height;
  PlayerMapping mapping;
  PictureWork work;
  std::unordered_map<uint32_t, int32_t> penWidths;  // by handles
  double penWidth = 1;                              // in pixels
  double fontHeight = 0;                            // of the font that was made last
  double clipBoxes = 0;
  Point current{0, 0};
};

void ReadRecord(const EmfRecord& record, PictureCost& cost) {
  try {
    cost.Read(record);
  } catch (const MalformedRecord&) {
    // The next record may be sound.
  }
}

}  // namespace

void RequireWork(const MetafileBytes& metafile, PixelSize size) {
  try {
    const EmfRecord header(metafile.data(), metafile.size());
    PictureCost cost(MeasuresOf(header), size,
                     PictureWork(metafile.DrawingBytes(), DotScale(size.dotsPerMetre)));
    for (size_t offset = header.Size(); offset < metafile.size();) {
      const EmfRecord record(metafile.data() + offset, metafile.size() - offset);
      ReadRecord(record, cost);
      offset += record.Size();
    }
  } catch (const MalformedRecord&) {
    // The system plays what is before it.
  }
}

}  // namespace hexlume
