#include "support/metafile_canvas.h"

#include <sstream>
#include <stdexcept>

namespace hexlume {

static void DropFirstLine(std::istream& listing, const std::string& call) {
  std::string line;
  std::getline(listing, line);
  if (line.compare(0, call.size(), call) != 0) throw std::runtime_error("no " + call + " but " + line);
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
