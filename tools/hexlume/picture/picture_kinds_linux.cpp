#include "tools/hexlume/picture/picture_book.h"
#include "tools/hexlume/picture/picture_writers.h"

namespace hexlume {

const std::vector<PictureKind>& PictureKinds() {
  static const std::vector<PictureKind> kinds = {
      {"png", "Write a picture of the metafile", true, false, WritePngPicture},
      {"svg", "Write the same as an SVG file, in strokes", false, true, WriteSvgPicture},
      {"pdf", "Write the same as a PDF file of one page", false, false, WritePdfPicture},
  };
  return kinds;
}

bool HasPictureBooks() {
  return true;
}

}  // namespace hexlume
