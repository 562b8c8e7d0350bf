#include "support/metafile_canvas.h"

#include <cstdint>
#include <sstream>
#include <stdexcept>
#include <vector>

#include "tools/hexlume/metafile_listing.h"

namespace hexlume {

static void DropFirstLine(std::istream& listing, const std::string& call) {
  std::string line;
  std::getline(listing, line);
  if (line.compare(0, call.size(), call) != 0) throw std::runtime_error("no " + call + " but " + line);
}

std::string ListAndDelete(HENHMETAFILE metafile) {
  std::vector<uint8_t> bytes(GetEnhMetaFileBits(metafile, 0, nullptr));
  GetEnhMetaFileBits(metafile, static_cast<UINT>(bytes.size()), bytes.data());
  DeleteEnhMetaFile(metafile);
  std::ostringstream listing;
  if (!ListMetafile(bytes.data(), bytes.size(), listing)) throw std::runtime_error("not a metafile");
  return listing.str();
}

std::string ListCalls(const std::function<void(HDC)>& draw) {
  const HDC canvas = CreateEnhMetaFileA(nullptr, nullptr, nullptr, nullptr);
  SetMapMode(canvas, MM_HIMETRIC);
  draw(canvas);
  std::istringstream listing(ListAndDelete(CloseEnhMetaFile(canvas)));
  DropFirstLine(listing, "Frame(");
  DropFirstLine(listing, "SetMapMode(MM_HIMETRIC)");
  std::ostringstream calls;
  if (listing.peek() != std::istringstream::traits_type::eof()) calls << listing.rdbuf();
  return calls.str();
}

}  // namespace hexlume
