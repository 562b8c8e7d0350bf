// Metafiles as text, and a metafile canvas to draw on in a test.
#pragma once

#include <functional>
#include <string>

#include "platform/gdi.h"

namespace hexlume {

// The metafile's calls, one a line, its frame first. Deletes the metafile.
std::string ListAndDelete(HENHMETAFILE metafile);

// What draw leaves in a metafile, one call a line, without the frame and the mapping mode that precede it.
std::string ListCalls(const std::function<void(HDC)>& draw);

}  // namespace hexlume
