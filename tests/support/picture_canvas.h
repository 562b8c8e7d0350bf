// A picture of a metafile made by hand, to look at its pixels.
#pragma once

#include "support/emf_words.h"
#include "tools/hexlume/picture/raster_canvas.h"

namespace hexlume {

class PictureCanvas {
 public:
  // Plays the records on MM_HIMETRIC, between a header and an end record. The frame of 1000 by 1000 fills 100
  // by 100 pixels, of which each is so 10 units wide.
  explicit PictureCanvas(const Words& records);
  // Plays bytes as they are.
  PictureCanvas(const void* bytes, size_t size);

  bool IsSound() const { return sound; }
  // Whether cairo could go on to the end.
  bool IsUsable() const { return usable; }

  static constexpr int side = 100;

  // 0xRRGGBB.
  uint32_t At(int x, int y) const;
  // Whether anything is drawn in the pixels from left and top to right and bottom, the last two not included.
  bool IsMarked(int left, int top, int right, int bottom) const;
  bool operator==(const PictureCanvas& other) const;

 private:
  void Play(const void* bytes, size_t size);

  RasterCanvas canvas{side, side};
  RasterImage image{};
  bool sound = false, usable = false;
};

}  // namespace hexlume
