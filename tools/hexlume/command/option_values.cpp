#include "tools/hexlume/command/option_values.h"

#include <algorithm>
#include <charconv>
#include <iterator>

#include "tools/hexlume/command/suggestion.h"

namespace hexlume {
namespace {

struct Family {
  const char* name;
  int32_t number;
};

constexpr Family families[] = {
    {"solid", 0}, {"dotted", 2}, {"dashed", 1}, {"chain", 3}, {"double-chain", 4},
};

constexpr const char* metafileKind = "emf";

const PictureKind* KindOf(const std::string& name) {
  if (name == metafileKind) return nullptr;
  std::vector<std::string> names = {metafileKind};
  for (const PictureKind& kind : PictureKinds()) {
    if (name == kind.option) return &kind;
    names.push_back(kind.option);
  }
  std::string list;
  for (const std::string& each : names) list += (list.empty() ? "" : ", ") + each;
  throw UsageError("--to needs kinds of results with commas between, of " + list + ", not '" + name + "'" +
                   Suggestion(name, names));
}

}  // namespace

int32_t ParseNumber(const std::string& option, const std::string& text, int32_t least, int32_t most) {
  int32_t number = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc() || stop != end || number < least || number > most) {
    throw UsageError(option + " needs a whole number from " + std::to_string(least) + " to " +
                     std::to_string(most) + ", not '" + text + "'");
  }
  return number;
}

View ParseView(const std::string& text) {
  int32_t edges[4];
  const char* at = text.data();
  const char* const end = at + text.size();
  for (int i = 0; i < 4; ++i) {
    const auto [stop, error] = std::from_chars(at, end, edges[i]);
    const bool separated = i < 3 ? stop != end && *stop == ',' : stop == end;
    if (error != std::errc() || !separated) {
      throw UsageError("--view needs four whole numbers L,T,R,B, not '" + text + "'");
    }
    at = stop + (i < 3);
  }
  if (edges[0] > edges[2]) throw UsageError("--view needs a left edge that isn't right of the right one");
  if (edges[1] > edges[3]) throw UsageError("--view needs a top edge that isn't below the bottom one");
  return {edges[0], edges[1], edges[2], edges[3]};
}

int32_t ParseFamily(const std::string& text) {
  const auto found = std::find_if(std::begin(families), std::end(families),
                                  [&text](const Family& family) { return family.name == text; });
  if (found != std::end(families)) return found->number;
  throw UsageError("--hide-line-type needs solid, dotted, dashed, chain or double-chain, not '" + text + "'");
}

int64_t ParseSize(const std::string& option, const std::string& text) {
  constexpr int64_t least = 16 << 20;
  constexpr int64_t most = int64_t{1} << 50;
  constexpr const char* units = "KMG";
  int64_t size = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, size);
  const std::string unit(stop, end);
  const size_t power = unit.empty() ? 0 : std::string(units).find(unit) + 1;
  const bool isSize = error == std::errc() && unit.size() <= 1 && (unit.empty() || power > 0) && size > 0 &&
                      size <= most >> 10 * power;
  if (isSize && size << 10 * power >= least) return size << 10 * power;
  throw UsageError(option + " needs a size from 16M upward, for example 500M or 2G, not '" + text + "'");
}

std::vector<const PictureKind*> ParseKinds(const std::string& text) {
  std::vector<const PictureKind*> kinds;
  size_t start = 0;
  while (start <= text.size()) {
    const size_t end = std::min(text.find(',', start), text.size());
    const PictureKind* const kind = KindOf(text.substr(start, end - start));
    if (std::find(kinds.begin(), kinds.end(), kind) == kinds.end()) kinds.push_back(kind);
    start = end + 1;
  }
  return kinds;
}

}  // namespace hexlume
