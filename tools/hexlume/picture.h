// Pictures of a metafile, in the formats that the system supports.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <vector>

#include "tools/hexlume/metafile_bytes.h"

namespace hexlume {

// Describes why a picture can't be made.
struct PictureError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// A picture format. A picture shows the metafile's frame on white, in its true size.
struct PictureKind {
  const char* option;  // command-line option, without hyphens
  const char* help;
  bool hasPixels;  // whether dotsPerInch is used
  std::vector<uint8_t> (*make)(const MetafileBytes& metafile,
                               int32_t dotsPerInch);  // returns the bytes of the file
};

// Returns the formats of this system, in the order of the help text.
const std::vector<PictureKind>& PictureKinds();

struct PixelSize {
  int32_t width, height;
};

// Returns the size of a picture of a frame in hundredths of a millimetre. Throws PictureError if the frame is
// empty or a side would exceed 20000 pixels. Each side is at least one pixel.
PixelSize PictureSize(int32_t left, int32_t top, int32_t right, int32_t bottom, int32_t dotsPerInch);

}  // namespace hexlume
