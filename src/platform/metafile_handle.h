// The bytes of a metafile and handles of the system.
#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/gdi.h"

namespace hexlume {

// Makes a metafile of the bytes. Null where the system has no metafiles.
void* MetafileHandle(const uint8_t* bytes, size_t size);

// Returns the bytes of a metafile where they are, as long as it isn't deleted. Null where the system only copies them.
uint8_t* BytesInPlace(HENHMETAFILE metafile);

}  // namespace hexlume
