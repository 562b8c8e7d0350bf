// Drawings for the host library, as bytes.
#pragma once

#include <cstdint>
#include <sstream>
#include <string>
#include <string_view>

#include "support/text_drawing.h"
#include "tools/hexlume/metafile/metafile_listing.h"

namespace hexlume {

// An A3 sheet of lines 1 to 8.
inline const std::string a3Header =
    "0 SECTION\n2 HEADER\n9 $LIMMIN\n10 0\n20 0\n9 $LIMMAX\n10 420\n20 297\n0 ENDSEC\n";
inline const std::string end = "0 ENDSEC\n0 EOF\n";

inline std::string A3(const std::string& entities) {
  return DrawingBytes(a3Header + "0 SECTION\n2 ENTITIES\n" + entities + end);
}

inline std::string Line(const std::string& groups = "") {
  return "0 LINE\n" + groups + "10 0\n20 0\n11 10\n21 20\n";
}

inline std::string Lines(int32_t count) {
  std::string lines;
  for (int32_t i = 0; i < count; ++i) lines += Line();
  return lines;
}

inline std::string Listing(std::string_view metafile) {
  std::ostringstream listing;
  const bool sound =
      ListMetafile(reinterpret_cast<const uint8_t*>(metafile.data()), metafile.size(), listing);
  return listing.str() + (sound ? "" : "malformed");
}

inline size_t Count(const std::string& text, const std::string& part) {
  size_t count = 0;
  for (size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
  return count;
}

}  // namespace hexlume
