// The faces of the texts in a metafile.
#pragma once

#include <string>
#include <vector>

#include "tools/hexlume/metafile/metafile_bytes.h"

namespace hexlume {

// The names, each once, in the order of the metafile.
std::vector<std::string> FacesOf(const MetafileBytes& metafile);

// Whether the system has a font of this name, so that texts aren't shown in another one.
bool HasFont(const std::string& face);

}  // namespace hexlume
