// A drawing test: what one or more conversions of a drawing must give, as text beside the drawing.
//
//   # A comment: where the numbers come from.
//   > vzMetaMake showDialogs=1
//   Frame(0, 0, 42000, 29700)
//   ...                          the metafile's calls, as the tool's --list prints them
//   > vzRotMetaMake
//   = 30                         the return code, where it isn't 0
//
// A call without a line of its own above the first listing is `> vzDXFMetaMake`, all arguments 0. Arguments
// that a call line doesn't name are 0. A case begins with the monochrome switch off, unless its first call
// sets it.
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace hexlume {

struct ExpectedConversion {
  std::string function = "vzDXFMetaMake";
  std::map<std::string, std::vector<int32_t>> arguments;  // by name
  int32_t code = 0;
  std::vector<std::string> listing;
};

struct DrawingCase {
  std::filesystem::path drawing;
  std::string room;
  std::string name;
  std::vector<ExpectedConversion> conversions;
};

// All cases below a folder, by room and name. Throws std::runtime_error, naming the file, for a text that
// makes no sense or has no drawing.
std::vector<DrawingCase> FindDrawingCases(const std::filesystem::path& folder);

}  // namespace hexlume
