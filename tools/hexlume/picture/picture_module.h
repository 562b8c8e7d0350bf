// The module that makes the tool's pictures. The tool loads it for its first picture, because the seventeen libraries that
// pictures need would be a third of each start.
#pragma once

#include <memory>

#include "tools/hexlume/picture/picture.h"
#include "tools/hexlume/picture/picture_book.h"

namespace hexlume {

// The functions of the same names. The module exports one of these as hexlumePictureModule.
struct PictureModule {
  const char* version;  // the tool's: no other module is taken
  void (*writePngPicture)(const MetafileBytes& metafile, const PictureSettings& settings,
                          const ByteSink& sink);
  void (*writeSvgPicture)(const MetafileBytes& metafile, const PictureSettings& settings,
                          const ByteSink& sink);
  void (*writePdfPicture)(const MetafileBytes& metafile, const PictureSettings& settings,
                          const ByteSink& sink);
  void (*checkPage)(const MetafileBytes& metafile);
  std::unique_ptr<PictureBook> (*makePictureBook)(const ByteSink& sink);
};

}  // namespace hexlume
