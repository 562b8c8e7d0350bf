// The writers of the formats, one for each row of PictureKinds on Linux.
#pragma once

#include "tools/hexlume/picture/picture.h"

namespace hexlume {

void WritePngPicture(const MetafileBytes& metafile, const PictureSettings& settings, const ByteSink& sink);
void WriteSvgPicture(const MetafileBytes& metafile, const PictureSettings& settings, const ByteSink& sink);
void WritePdfPicture(const MetafileBytes& metafile, const PictureSettings& settings, const ByteSink& sink);

}  // namespace hexlume
