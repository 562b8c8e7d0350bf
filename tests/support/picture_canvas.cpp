#include "support/picture_canvas.h"

#include "tools/hexlume/metafile_player.h"

namespace hexlume {

PictureCanvas::PictureCanvas(const Words& records) {
  const Words metafile = SmallHeader() + SetMapModeRecord(3) + records + EndRecord();
  Play(metafile.data(), 4 * metafile.size());
}

PictureCanvas::PictureCanvas(const void* bytes, size_t size) {
  Play(bytes, size);
}

void PictureCanvas::Play(const void* bytes, size_t size) {
  surface.reset(cairo_image_surface_create(CAIRO_FORMAT_RGB24, side, side));
  cairo_t* const context = cairo_create(surface.get());
  cairo_set_source_rgb(context, 1, 1, 1);
  cairo_paint(context);
  sound = PlayMetafile(static_cast<const uint8_t*>(bytes), size, {context, side, side, 1, true});
  usable = cairo_status(context) == CAIRO_STATUS_SUCCESS;
  cairo_destroy(context);
  cairo_surface_flush(surface.get());
}

uint32_t PictureCanvas::At(int x, int y) const {
  const uint8_t* const row = cairo_image_surface_get_data(surface.get()) +
                             static_cast<ptrdiff_t>(y) * cairo_image_surface_get_stride(surface.get());
  uint32_t pixel;
  std::memcpy(&pixel, row + 4 * static_cast<ptrdiff_t>(x), sizeof pixel);
  return pixel & 0xFFFFFF;
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
