// A metafile that must not exceed a number of bytes.
#pragma once

#include "host/metafile_bytes.h"

namespace hexlume {

// Cuts a metafile after the last whole record with which it, closed by an end record, has at most mostBytes.
// Empties it if not even its header fits. False if it fits as it is.
bool CutMetafile(MetafileBytes& metafile, size_t mostBytes);

}  // namespace hexlume
