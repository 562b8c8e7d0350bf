// Pictures of a metafile, in the kinds that the system offers.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <vector>

#include "tools/hexlume/metafile_bytes.h"

namespace hexlume {

// Says why there is no picture.
struct PictureError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// A kind of picture: the metafile's frame on white, in its true size.
struct PictureKind {
  const char* option;  // of the command line, without its hyphens
  const char* help;
  bool hasPixels;                                                                    // dotsPerInch counts
  std::vector<uint8_t> (*make)(const MetafileBytes& metafile, int32_t dotsPerInch);  // the bytes of its file
};

// All kinds that there are on this system, in the order of the help.
const std::vector<PictureKind>& PictureKinds();

struct PixelSize {
  int32_t width, height;
};

// The size of a picture of a frame, given in hundredths of a millimetre. No picture is smaller than a pixel,
// or larger than 20000 pixels on a side; an empty frame has none.
PixelSize PictureSize(int32_t left, int32_t top, int32_t right, int32_t bottom, int32_t dotsPerInch);

}  // namespace hexlume
