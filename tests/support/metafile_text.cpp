#include <cstdint>
#include <sstream>
#include <stdexcept>
#include <vector>

#include "support/metafile_canvas.h"
#include "tools/hexlume/metafile/metafile_listing.h"

namespace hexlume {

std::string ListAndDelete(HENHMETAFILE metafile) {
  std::vector<uint8_t> bytes(GetEnhMetaFileBits(metafile, 0, nullptr));
  GetEnhMetaFileBits(metafile, static_cast<UINT>(bytes.size()), bytes.data());
  DeleteEnhMetaFile(metafile);
  std::ostringstream listing;
  if (!ListMetafile(bytes.data(), bytes.size(), listing)) throw std::runtime_error("not a metafile");
  return listing.str();
}

}  // namespace hexlume
