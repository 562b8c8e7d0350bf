// The drawings that the command line asks for.
#pragma once

#include <string>
#include <vector>

#include "tools/hexlume/command/options.h"

namespace hexlume {

struct ListedDrawing {
  std::string path;
  size_t placeStart;  // where in the path the part begins that the results keep below their folder
};

struct DrawingList {
  std::vector<ListedDrawing> drawings;  // each file once, in the order given; those of a folder sorted
  std::vector<std::string> unreadableFolders;
  bool isMany = false;  // a folder, a list or a wildcard was given, however many drawings it has
};

// Throws UsageError if a list can't be read.
DrawingList ListDrawings(const Options& options);

}  // namespace hexlume
