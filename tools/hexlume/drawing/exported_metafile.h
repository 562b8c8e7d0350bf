// The bytes of a metafile that one of the nine exports has given.
#pragma once

#include <hexlume.h>

#include <memory>
#include <type_traits>

#include "tools/hexlume/metafile/metafile_bytes.h"
#include "tools/hexlume/system/file_output.h"

namespace hexlume {

struct DeleteMetafile {
  void operator()(HENHMETAFILE metafile) const { DeleteEnhMetaFile(metafile); }
};
using ExportedMetafile = std::unique_ptr<std::remove_pointer_t<HENHMETAFILE>, DeleteMetafile>;

// Not for a null pointer.
MetafileBytes BytesOf(ExportedMetafile metafile);

// Lets the system write a metafile that it keeps in its memory. False if it keeps none or can't; nothing is written then.
bool SaveBySystem(const MetafileBytes& metafile, WholeFile& file);

}  // namespace hexlume
