// A picture of a metafile.
#pragma once

#include <hexlume.h>

#include <cstdint>
#include <stdexcept>
#include <vector>

namespace hexlume {

// Says why there is no picture.
struct PictureError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// The bytes of a PNG file: the metafile's frame on white, in its true size at dotsPerInch.
std::vector<uint8_t> PngPicture(HENHMETAFILE metafile, int32_t dotsPerInch);

}  // namespace hexlume
