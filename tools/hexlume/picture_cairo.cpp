#include <cairo-pdf.h>
#include <cairo-svg.h>
#include <cairo.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <new>
#include <string>

#include "tools/hexlume/metafile_player.h"
#include "tools/hexlume/picture.h"

namespace hexlume {
namespace {

using Bytes = std::vector<uint8_t>;

struct FreeCairo {
  void operator()(cairo_t* context) const { cairo_destroy(context); }
  void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
};
using Context = std::unique_ptr<cairo_t, FreeCairo>;
using Surface = std::unique_ptr<cairo_surface_t, FreeCairo>;

void Require(cairo_status_t status) {
  if (status == CAIRO_STATUS_SUCCESS) return;
  if (status == CAIRO_STATUS_NO_MEMORY) throw std::bad_alloc();
  throw PictureError(std::string("cairo says: ") + cairo_status_to_string(status));
}

cairo_status_t Append(void* bytes, const unsigned char* data, unsigned int length) {
  try {
    auto& all = *static_cast<Bytes*>(bytes);
    all.insert(all.end(), data, data + length);
    return CAIRO_STATUS_SUCCESS;
  } catch (const std::bad_alloc&) {
    return CAIRO_STATUS_NO_MEMORY;
  }
}

MetafileFrame FrameOf(const Bytes& metafile) {
  MetafileFrame frame;
  if (!ReadMetafileFrame(metafile.data(), metafile.size(), frame)) {
    throw PictureError("the metafile has no header");
  }
  return frame;
}

// Draws the metafile on a white background.
void Paint(const Surface& surface, const Bytes& metafile, double width, double height, double hairline,
           bool hasPixels) {
  const Context context(cairo_create(surface.get()));
  cairo_set_source_rgb(context.get(), 1, 1, 1);
  cairo_paint(context.get());
  // Clips to the frame.
  cairo_rectangle(context.get(), 0, 0, width, height);
  cairo_clip(context.get());
  const PlayerTarget target{context.get(), width, height, hairline, hasPixels};
  const bool sound = PlayMetafile(metafile.data(), metafile.size(), target);
  Require(cairo_status(context.get()));
  if (!sound) throw PictureError("the metafile is malformed");
}

// Returns the CRC-32 of a PNG chunk, over its type and data.
uint32_t ChunkChecksum(const uint8_t* bytes, size_t size) {
  uint32_t remainder = 0xFFFFFFFF;
  for (size_t i = 0; i < size; ++i) {
    remainder ^= bytes[i];
    for (int bit = 0; bit < 8; ++bit) remainder = remainder >> 1 ^ (remainder & 1 ? 0xEDB88320 : 0);
  }
  return ~remainder;
}

void PutBigEndian(uint8_t* place, uint32_t number) {
  for (int i = 0; i < 4; ++i) place[i] = static_cast<uint8_t>(number >> (24 - 8 * i));
}

// Inserts a pHYs chunk, in pixels per metre, after the first chunk, because cairo doesn't
// write the resolution.
void AddResolution(Bytes& png, int32_t dotsPerInch) {
  constexpr size_t signatureAndFirstChunk = 8 + 25;
  constexpr double inchesInAMetre = 1 / 0.0254;
  const auto dots = static_cast<uint32_t>(std::lround(dotsPerInch * inchesInAMetre));
  std::array<uint8_t, 21> chunk{0, 0, 0, 9, 'p', 'H', 'Y', 's', 0, 0, 0, 0, 0, 0, 0, 0, 1};
  PutBigEndian(&chunk[8], dots);
  PutBigEndian(&chunk[12], dots);
  PutBigEndian(&chunk[17], ChunkChecksum(&chunk[4], 13));
  png.insert(png.begin() + signatureAndFirstChunk, chunk.begin(), chunk.end());
}

Bytes PngPicture(const MetafileBytes& metafile, int32_t dotsPerInch) {
  const MetafileFrame frame = FrameOf(metafile);
  const PixelSize size = PictureSize(frame.left, frame.top, frame.right, frame.bottom, dotsPerInch);
  const Surface surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, size.width, size.height));
  Require(cairo_surface_status(surface.get()));
  Paint(surface, metafile, size.width, size.height, 1, true);
  Bytes png;
  Require(cairo_surface_write_to_png_stream(surface.get(), Append, &png));
  AddResolution(png, dotsPerInch);
  return png;
}

using CreateSurface = cairo_surface_t* (*)(cairo_write_func_t write, void* closure, double width,
                                           double height);

// Makes a vector file, in points.
Bytes VectorPicture(const MetafileBytes& metafile, CreateSurface create) {
  constexpr double pointsInAHundredth = 72 / 2540.0;
  constexpr double hairline = 10 * pointsInAHundredth;
  constexpr double mostOnASide = 14400;  // limit of a PDF page
  const MetafileFrame frame = FrameOf(metafile);
  if (frame.right <= frame.left || frame.bottom <= frame.top)
    throw PictureError("the metafile's frame is empty");
  const double width = (static_cast<double>(frame.right) - frame.left) * pointsInAHundredth;
  const double height = (static_cast<double>(frame.bottom) - frame.top) * pointsInAHundredth;
  if (std::max(width, height) > mostOnASide) {
    throw PictureError("the picture would be larger than 14400 points (5080 mm) on a side");
  }
  Bytes file;
  const Surface surface(create(Append, &file, width, height));
  Require(cairo_surface_status(surface.get()));
  Paint(surface, metafile, width, height, hairline, false);
  cairo_surface_finish(surface.get());
  Require(cairo_surface_status(surface.get()));
  return file;
}

Bytes SvgPicture(const MetafileBytes& metafile, int32_t) {
  return VectorPicture(metafile, cairo_svg_surface_create_for_stream);
}

Bytes PdfPicture(const MetafileBytes& metafile, int32_t) {
  return VectorPicture(metafile, cairo_pdf_surface_create_for_stream);
}

}  // namespace

const std::vector<PictureKind>& PictureKinds() {
  static const std::vector<PictureKind> kinds = {
      {"png", "Write a picture of the metafile", true, PngPicture},
      {"svg", "Write the same as an SVG file, in strokes", false, SvgPicture},
      {"pdf", "Write the same as a PDF file of one page", false, PdfPicture},
  };
  return kinds;
}

}  // namespace hexlume
