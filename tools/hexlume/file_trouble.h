// What makes a file no drawing, or not all of one.
#pragma once

#include <optional>
#include <string>

namespace hexlume {

// In words for the user. None for a file that looks like a drawing, and for one that can't be read. Whether
// it has entities is asked only of a file that gave no drawing, as that takes reading it.
std::optional<std::string> TroubleWith(const std::string& path, bool gaveNoDrawing);

}  // namespace hexlume
