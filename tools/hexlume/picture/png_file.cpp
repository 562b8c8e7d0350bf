#include "tools/hexlume/picture/png_file.h"

#include <png.h>

#include <array>
#include <csetjmp>
#include <exception>
#include <memory>
#include <new>
#include <string>
#include <vector>

#include "tools/hexlume/picture/picture.h"

namespace hexlume {
namespace {

// The colours of an image with few. With a palette its file is smaller, and is made in less time.
class Palette {
 public:
  explicit Palette(const RasterImage& image) {
    for (int y = 0; y < image.height; ++y) {
      const uint32_t* const row = image.Row(y);
      for (int x = 0; x < image.width; ++x)
        if (!Add(row[x] & 0xFFFFFF)) return;
    }
    isWhole = true;
  }

  // Whether all colours of the image fit.
  bool IsWhole() const { return isWhole; }
  const std::vector<png_color>& Colors() const { return colors; }
  uint8_t IndexOf(uint32_t color) const { return slots[SlotOf(color)].index; }

 private:
  static constexpr size_t mostColors = 256;
  static constexpr uint32_t unused = 0xFFFFFFFF;

  struct Slot {
    uint32_t color = unused;
    uint8_t index = 0;
  };

  // The slot of a color, or the free one for it.
  size_t SlotOf(uint32_t color) const {
    size_t slot = (color * 0x9E3779B1u >> 16) % slots.size();
    while (slots[slot].color != color && slots[slot].color != unused) slot = (slot + 1) % slots.size();
    return slot;
  }

  bool Add(uint32_t color) {
    if (color == last) return true;
    last = color;
    Slot& slot = slots[SlotOf(color)];
    if (slot.color == color) return true;
    if (colors.size() == mostColors) return false;
    slot = {color, static_cast<uint8_t>(colors.size())};
    colors.push_back({static_cast<png_byte>(color >> 16), static_cast<png_byte>(color >> 8),
                      static_cast<png_byte>(color)});
    return true;
  }

  std::array<Slot, 4096> slots;
  std::vector<png_color> colors;
  uint32_t last = unused;
  bool isWhole = false;
};

// What libpng calls. No exception may pass through it.
struct Receiver {
  const ByteSink& sink;
  std::exception_ptr trouble;  // what the sink has thrown
  std::string message;         // of libpng
};

void Receive(png_structp png, png_bytep bytes, size_t size) {
  auto& receiver = *static_cast<Receiver*>(png_get_io_ptr(png));
  if (receiver.trouble) return;
  try {
    receiver.sink(bytes, size);
  } catch (...) {
    receiver.trouble = std::current_exception();
  }
}

void Flush(png_structp) {}

void Fail(png_structp png, png_const_charp message) {
  static_cast<Receiver*>(png_get_error_ptr(png))->message = message;
  longjmp(png_jmpbuf(png), 1);
}

void Ignore(png_structp, png_const_charp) {}

// A file being written, and what has to be freed after it.
class PngWriter {
 public:
  PngWriter(Receiver& receiver, const RasterImage& writtenImage, int32_t resolution)
      : image(writtenImage),
        dotsPerMetre(static_cast<png_uint_32>(resolution)),
        palette(std::make_unique<Palette>(image)),
        row(static_cast<size_t>(image.width) * 3),
        png(png_create_write_struct(PNG_LIBPNG_VER_STRING, &receiver, Fail, Ignore)) {
    if (!png) throw std::bad_alloc();
    info = png_create_info_struct(png);
    png_set_write_fn(png, &receiver, Receive, Flush);
  }
  ~PngWriter() { png_destroy_write_struct(&png, &info); }
  PngWriter(const PngWriter&) = delete;
  PngWriter& operator=(const PngWriter&) = delete;

  // Returns false if libpng reports an error. Nothing here has a destructor, as an error is a long jump.
  bool Write() {
    if (!info || setjmp(png_jmpbuf(png))) return false;
    constexpr int quick = 3;  // the level of compression
    png_set_compression_level(png, quick);
    if (palette->IsWhole()) {
      BeginWithPalette();
    } else {
      BeginWithColors();
    }
    for (int y = 0; y < image.height; ++y) {
      palette->IsWhole() ? IndexRow(y) : ColorRow(y);
      png_write_row(png, row.data());
    }
    png_write_end(png, nullptr);
    return true;
  }

 private:
  void BeginWithPalette() {
    const std::vector<png_color>& colors = palette->Colors();
    const int depth = colors.size() <= 2 ? 1 : colors.size() <= 4 ? 2 : colors.size() <= 16 ? 4 : 8;
    Begin(depth, PNG_COLOR_TYPE_PALETTE, PNG_FILTER_NONE);
  }

  void BeginWithColors() { Begin(8, PNG_COLOR_TYPE_RGB, PNG_FILTER_SUB); }

  void Begin(int depth, int type, int filter) {
    png_set_IHDR(png, info, static_cast<png_uint_32>(image.width), static_cast<png_uint_32>(image.height),
                 depth, type, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_set_filter(png, PNG_FILTER_TYPE_BASE, filter);
    if (type == PNG_COLOR_TYPE_PALETTE)
      png_set_PLTE(png, info, palette->Colors().data(), static_cast<int>(palette->Colors().size()));
    png_set_pHYs(png, info, dotsPerMetre, dotsPerMetre, PNG_RESOLUTION_METER);
    png_write_info(png, info);
    png_set_packing(png);
  }

  void IndexRow(int y) {
    const uint32_t* const pixels = image.Row(y);
    uint32_t color = pixels[0] & 0xFFFFFF;
    uint8_t index = palette->IndexOf(color);
    for (int x = 0; x < image.width; ++x) {
      if ((pixels[x] & 0xFFFFFF) != color) index = palette->IndexOf(color = pixels[x] & 0xFFFFFF);
      row[static_cast<size_t>(x)] = index;
    }
  }

  void ColorRow(int y) {
    const uint32_t* const pixels = image.Row(y);
    png_byte* to = row.data();
    for (int x = 0; x < image.width; ++x) {
      *to++ = static_cast<png_byte>(pixels[x] >> 16);
      *to++ = static_cast<png_byte>(pixels[x] >> 8);
      *to++ = static_cast<png_byte>(pixels[x]);
    }
  }

  const RasterImage& image;
  png_uint_32 dotsPerMetre;
  std::unique_ptr<Palette> palette;
  std::vector<png_byte> row;
  png_structp png;
  png_infop info = nullptr;
};

}  // namespace

void WritePng(const RasterImage& image, int32_t dotsPerMetre, const ByteSink& sink) {
  Receiver receiver{sink, nullptr, {}};
  PngWriter writer(receiver, image, dotsPerMetre);
  const bool isWritten = writer.Write();
  if (receiver.trouble) std::rethrow_exception(receiver.trouble);
  if (!isWritten) throw PictureError("libpng says: " + receiver.message);
}

}  // namespace hexlume
