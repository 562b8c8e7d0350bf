// PNG files, read back by cairo.
#include "tools/hexlume/picture/png_file.h"

#include <cairo.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include "support/picture_text.h"

namespace hexlume::png_file_test {
namespace {

struct Image {
  Image(int imageWidth, int imageHeight)
      : width(imageWidth), height(imageHeight), pixels(static_cast<size_t>(width * height), 0xFFFFFF) {}

  RasterImage Raster() { return {reinterpret_cast<uint8_t*>(pixels.data()), width, height, 4 * width}; }

  int width, height;
  std::vector<uint32_t> pixels;
};

std::string PngOf(Image& image, int32_t dotsPerMetre = 3780) {
  std::string png;
  WritePng(image.Raster(), dotsPerMetre, AppendTo(png));
  return png;
}

cairo_status_t Read(void* text, unsigned char* bytes, unsigned length) {
  auto& rest = *static_cast<std::string*>(text);
  if (rest.size() < length) return CAIRO_STATUS_READ_ERROR;
  std::memcpy(bytes, rest.data(), length);
  rest.erase(0, length);
  return CAIRO_STATUS_SUCCESS;
}

void ExpectPixels(const Image& image, std::string png) {
  cairo_surface_t* const surface = cairo_image_surface_create_from_png_stream(Read, &png);
  ASSERT_EQ(CAIRO_STATUS_SUCCESS, cairo_surface_status(surface));
  ASSERT_EQ(image.width, cairo_image_surface_get_width(surface));
  ASSERT_EQ(image.height, cairo_image_surface_get_height(surface));
  for (int y = 0; y < image.height; ++y) {
    const uint8_t* const row =
        cairo_image_surface_get_data(surface) + y * cairo_image_surface_get_stride(surface);
    for (int x = 0; x < image.width; ++x) {
      uint32_t pixel;
      std::memcpy(&pixel, row + 4 * x, sizeof pixel);
      ASSERT_EQ(image.pixels[static_cast<size_t>(y * image.width + x)] & 0xFFFFFF, pixel & 0xFFFFFF)
          << x << ' ' << y;
    }
  }
  cairo_surface_destroy(surface);
}

// The bit depth and the kind of colour: 2 for RGB, 3 for a palette.
std::pair<int, int> FormatOf(const std::string& png) {
  return {png[24], png[25]};
}

// An image of so many colours.
Image ImageOf(int colors) {
  Image image(37, 23);
  for (size_t i = 0; i < image.pixels.size(); ++i)
    image.pixels[i] = static_cast<uint32_t>(static_cast<int>(i) % colors) * 0x010307;
  return image;
}

TEST(PngFile, few_colours_have_a_palette_and_as_few_bits_as_they_need) {
  const struct {
    int colors, depth, type;
  } rows[] = {{1, 1, 3},  {2, 1, 3},  {3, 2, 3},   {4, 2, 3},  {5, 4, 3},
              {16, 4, 3}, {17, 8, 3}, {256, 8, 3}, {257, 8, 2}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.colors);
    Image image = ImageOf(row.colors);
    const std::string png = PngOf(image);
    EXPECT_EQ(std::pair(row.depth, row.type), FormatOf(png));
    ExpectPixels(image, png);
  }
}

TEST(PngFile, it_has_its_resolution) {
  Image image(3, 2);
  const std::string png = PngOf(image, 0x01020304);
  EXPECT_NE(std::string::npos, png.find(std::string("pHYs\x01\x02\x03\x04\x01\x02\x03\x04\x01", 13)));
}

TEST(PngFile, what_the_sink_throws_is_thrown) {
  Image image = ImageOf(1000);
  const ByteSink full = [](const uint8_t*, size_t) { throw std::length_error("full"); };
  EXPECT_THROW(WritePng(image.Raster(), 3780, full), std::length_error);
}

}  // namespace
}  // namespace hexlume::png_file_test
