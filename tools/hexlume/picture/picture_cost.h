// The work of a picture that the system makes of a metafile, counted before the system begins: it can't be stopped.
#pragma once

#include "tools/hexlume/metafile/metafile_bytes.h"
#include "tools/hexlume/picture/picture.h"

namespace hexlume {

// Throws PictureError if the picture takes more than PictureWork allows.
void RequireWork(const MetafileBytes& metafile, PixelSize size);

}  // namespace hexlume
