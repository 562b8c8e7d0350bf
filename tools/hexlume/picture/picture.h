// Pictures of a metafile, in the formats that the system supports.
#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <vector>

#include "tools/hexlume/metafile/metafile_bytes.h"
#include "tools/hexlume/picture/byte_sink.h"

namespace hexlume {

// Describes why a picture can't be made.
struct PictureError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

struct PictureSettings {
  int32_t dotsPerInch = 96;
  std::optional<int32_t> longestSide;  // in pixels, instead of dotsPerInch
  bool keepsTexts = false;             // whether texts stay texts where the format's default is outlines
};

// A picture format. A picture shows the metafile's frame on white, in its true size.
struct PictureKind {
  const char* option;  // command-line option, without hyphens
  const char* help;
  bool hasPixels;     // whether dotsPerInch and longestSide are used
  bool canKeepTexts;  // whether keepsTexts is used
  // Passes the bytes of the file on as they are made. When it throws, they aren't whole.
  void (*write)(const MetafileBytes& metafile, const PictureSettings& settings, const ByteSink& sink);
};

// Returns the formats of this system, in the order of the help text.
const std::vector<PictureKind>& PictureKinds();

struct PixelSize {
  int32_t width, height;
  int32_t dotsPerMetre;
};

// Returns the size of a picture of a frame in hundredths of a millimetre. Throws PictureError if the frame is
// empty or a side would exceed 20000 pixels. Each side is at least one pixel.
PixelSize PictureSize(int32_t left, int32_t top, int32_t right, int32_t bottom,
                      const PictureSettings& settings);

}  // namespace hexlume
