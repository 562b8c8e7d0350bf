#include "support/picture_canvas.h"

#include <stdexcept>

#include "tools/hexlume/metafile/metafile_player.h"

namespace hexlume {

PictureCanvas::PictureCanvas(const Words& records) {
  const Words metafile = SmallHeader() + SetMapModeRecord(3) + records + EndRecord();
  Play(metafile.data(), 4 * metafile.size());
}

PictureCanvas::PictureCanvas(const void* bytes, size_t size) {
  Play(bytes, size);
}

void PictureCanvas::Play(const void* bytes, size_t size) {
  sound = PlayMetafile(static_cast<const uint8_t*>(bytes), size, canvas);
  try {
    image = canvas.Finish();
    usable = true;
  } catch (const std::runtime_error&) {
  }
}

uint32_t PictureCanvas::At(int x, int y) const {
  return image.Row(y)[x] & 0xFFFFFF;
}

bool PictureCanvas::IsMarked(int left, int top, int right, int bottom) const {
  for (int y = top; y < bottom; ++y) {
    for (int x = left; x < right; ++x) {
      if (At(x, y) != 0xFFFFFF) return true;
    }
  }
  return false;
}

bool PictureCanvas::operator==(const PictureCanvas& other) const {
  for (int y = 0; y < side; ++y) {
    for (int x = 0; x < side; ++x) {
      if (At(x, y) != other.At(x, y)) return false;
    }
  }
  return true;
}

}  // namespace hexlume
