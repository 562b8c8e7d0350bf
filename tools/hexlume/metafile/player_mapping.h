// Maps a metafile's units to those of the context.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "tools/hexlume/metafile/emf_record.h"
#include "tools/hexlume/metafile/metafile_player.h"
#include "tools/hexlume/metafile/player_canvas.h"

namespace hexlume {

// The measures in a metafile's header.
struct MetafileMeasures {
  MetafileFrame frame;
  // A pixel of the device for which the metafile was recorded, in hundredths of a millimetre.
  double pixelWidth, pixelHeight;
};

inline MetafileMeasures MeasuresOf(const EmfRecord& header) {
  constexpr uint32_t signature = 0x464D4520;
  constexpr size_t shortestHeader = 88, frame = 24, device = 72, millimetres = 80;
  if (header.Type() != RecordType::header || header.Size() < shortestHeader || header.UInt(40) != signature) {
    throw MalformedRecord();
  }
  const auto pixel = [&header](size_t axis) {
    const int32_t pixels = header.Int(device + axis), size = header.Int(millimetres + axis);
    if (pixels <= 0 || size <= 0) throw MalformedRecord();
    return 100.0 * size / pixels;
  };
  return {{header.Int(frame), header.Int(frame + 4), header.Int(frame + 8), header.Int(frame + 12)},
          pixel(0),
          pixel(4)};
}

class PlayerMapping {
 public:
  PlayerMapping(const MetafileMeasures& metafile, const CanvasMeasures& canvas)
      : measures(metafile),
        scaleX(canvas.width / (static_cast<double>(metafile.frame.right) - metafile.frame.left)),
        scaleY(canvas.height / (static_cast<double>(metafile.frame.bottom) - metafile.frame.top)),
        hasPixels(canvas.hasPixels),
        reach(canvas.limits.reach) {}

  void SetMode(uint32_t mode) {
    constexpr uint32_t text = 1, himetric = 3;
    if (mode == text || mode == himetric) isHimetric = mode == himetric;
  }

  // Whether Y grows upward.
  bool IsUpward() const { return isHimetric; }

  Point FromLogical(double x, double y) const { return isHimetric ? FromSheet(x, -y) : FromDevice(x, y); }

  // Converts from pixels of the device for which the metafile was recorded.
  Point FromDevice(double x, double y) const {
    return FromSheet(x * measures.pixelWidth, y * measures.pixelHeight);
  }

  // The length of a logical unit on the context.
  double UnitX() const { return isHimetric ? scaleX : scaleX * measures.pixelWidth; }
  double UnitY() const { return isHimetric ? scaleY : scaleY * measures.pixelHeight; }

  // The length of a hundredth of a millimetre on the context.
  double SheetUnit() const { return scaleX; }

  // Adds the visible part of a region's rectangle, if there is one. On pixels its edges are rounded to theirs.
  void AddBox(CanvasBoxes& boxes, Point corner, Point opposite) const {
    const auto edge = [this](double place) {
      return std::clamp(hasPixels ? std::round(place) : place, -reach, reach);
    };
    const CanvasBox box{edge(std::min(corner.x, opposite.x)), edge(std::min(corner.y, opposite.y)),
                        edge(std::max(corner.x, opposite.x)), edge(std::max(corner.y, opposite.y))};
    if (box.left < box.right && box.top < box.bottom) boxes.push_back(box);
  }

  // Returns the middle of the pixel that contains the coordinate, if the context has pixels.
  double InMiddle(double coordinate) const { return hasPixels ? std::floor(coordinate) + 0.5 : coordinate; }

 private:
  Point FromSheet(double x, double y) const {
    return {(x - measures.frame.left) * scaleX, (y - measures.frame.top) * scaleY};
  }

  MetafileMeasures measures;
  double scaleX, scaleY;
  bool hasPixels;
  double reach;
  bool isHimetric = false;
};

}  // namespace hexlume
