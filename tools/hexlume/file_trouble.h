// Finds out why a file can't be converted, or only in part.
#pragma once

#include <optional>
#include <string>

namespace hexlume {

// Returns a description for the user, or none if the file looks like a drawing or can't be read. A search for
// the ENTITIES section reads the whole file, so it is done only if gaveNoDrawing is set.
std::optional<std::string> TroubleWith(const std::string& path, bool gaveNoDrawing);

}  // namespace hexlume
