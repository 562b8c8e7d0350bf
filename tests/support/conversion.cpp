#include "support/conversion.h"

#include <set>
#include <stdexcept>
#include <vector>

#include "support/metafile_canvas.h"

namespace hexlume {

namespace {

// Hands out a call's arguments and knows which of them nobody asked for.
struct Arguments {
  const ExpectedConversion& call;
  std::set<std::string> taken;

  int32_t Number(const std::string& name) {
    taken.insert(name);
    const auto found = call.arguments.find(name);
    return found == call.arguments.end() ? 0 : found->second.at(0);
  }

  RECT Rectangle(const std::string& name) {
    taken.insert(name);
    const std::vector<int32_t>& edges = call.arguments.at(name);
    return {edges.at(0), edges.at(1), edges.at(2), edges.at(3)};
  }
};

int32_t CallExport(const std::string& path, Arguments& arguments, HENHMETAFILE* out) {
  const std::string& function = arguments.call.function;
  const bool hasSwitch = function.compare(0, 5, "vzDXF") == 0;
  const int32_t monochrome = hasSwitch ? arguments.Number("monochrome") : 0;
  if (function == "vzRotMetaMake") return vzRotMetaMake(out);
  if (function == "vzDXFRotMetaMake") return vzDXFRotMetaMake(out, monochrome);

  const int32_t showDialogs = arguments.Number("showDialogs");
  const int32_t halfWidthFont = arguments.Number("halfWidthFont");
  if (function == "vzMetaMake") return vzMetaMake(path.c_str(), out, showDialogs, halfWidthFont);
  if (function == "vzDXFMetaMake")
    return vzDXFMetaMake(path.c_str(), out, showDialogs, halfWidthFont, monochrome);
  if (function == "vzFullSizeMetaMake")
    return vzFullSizeMetaMake(path.c_str(), out, showDialogs, halfWidthFont);
  if (function == "vzDXFFullSizeMetaMake")
    return vzDXFFullSizeMetaMake(path.c_str(), out, showDialogs, halfWidthFont, monochrome);

  const RECT view = arguments.Rectangle("view");
  const int32_t wholeTextClip = arguments.Number("wholeTextClip");
  if (function == "vzReMetaMake")
    return vzReMetaMake(path.c_str(), out, halfWidthFont, view, wholeTextClip, showDialogs);
  if (function == "vzDXFReMetaMake")
    return vzDXFReMetaMake(path.c_str(), out, halfWidthFont, view, wholeTextClip, showDialogs, monochrome);
  throw std::runtime_error("no such export: " + function);
}

}  // namespace

ConversionResult Convert(const std::string& path, const ExpectedConversion& call) {
  Arguments arguments = {call, {}};
  HENHMETAFILE metafile = nullptr;
  const int32_t code = CallExport(path, arguments, &metafile);
  for (const auto& [name, values] : call.arguments)
    if (arguments.taken.count(name) == 0) throw std::runtime_error("no such argument: " + name);
  return {code, metafile ? ListAndDelete(metafile) : ""};
}

}  // namespace hexlume
