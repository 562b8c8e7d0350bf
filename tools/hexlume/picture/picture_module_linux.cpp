#include "tools/hexlume/picture/picture_module.h"
#include "tools/hexlume/picture/picture_writers.h"

extern "C" {

extern const hexlume::PictureModule hexlumePictureModule;
const hexlume::PictureModule hexlumePictureModule = {
    HEXLUME_VERSION,          hexlume::WritePngPicture, hexlume::WriteSvgPicture,
    hexlume::WritePdfPicture, hexlume::CheckPage,       hexlume::MakePictureBook,
};

}  // extern "C"
