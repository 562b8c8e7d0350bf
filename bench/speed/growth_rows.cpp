#include <algorithm>

#include "bench/speed/rows.h"
#include "bench/speed/table.h"

namespace hexlume::bench {

namespace {

struct GrowthRow {
  const char* name;
  const char* items;
  Draw draw;
  int64_t fewer;
  int64_t factor;
};

// The numbers of dashes, groups and points of hatches are multiples of what their drawings are made of, with --quick too.
constexpr GrowthRow growthRows[] = {
    {"many-lines", "LINEs", DrawLines, 1'000'000, 10},
    {"blocks", "blocks, each inserted once", DrawBlocks, 10'000, 10},
    {"layers", "layers, with a LINE each", DrawLayers, 10'000, 10},
    {"dashes", "dashes of a LINE", DrawDashes, 100'000, 10},
    {"hatch-rows", "rows of a hatch", DrawHatchRows, 100'000, 10},
    {"many-inserts", "INSERTs of a block", DrawInserts, 100'000, 10},
    {"groups-read", "groups of a LINE in a block, read by INSERTs", DrawGroupsRead, 4'000'000, 10},
    {"groups-passed", "groups in a block of what isn't drawn", DrawGroupsPassedOver, 4'000'000, 10},
    {"nested-dashes", "dashes of ARCs in blocks in blocks", DrawNestedDashes, 250'000, 10},
    {"vertices", "vertices of a POLYLINE", DrawPolylineVertices, 100'000, 10},
    {"lw-vertices", "vertices of an LWPOLYLINE", DrawLwPolylineVertices, 100'000, 10},
    {"splines", "SPLINEs", DrawSplines, 10'000, 10},
    {"spline-points", "points of a SPLINE", DrawSplinePoints, 10'000, 10},
    {"many-texts", "TEXTs", DrawTexts, 10'000, 10},
    {"mtexts", "MTEXTs of three paragraphs", DrawMTexts, 10'000, 10},
    {"attributes", "ATTRIBs", DrawAttributes, 10'000, 10},
    {"dimensions", "DIMENSIONs, each with its block", DrawDimensions, 2'500, 4},
    {"hatches", "HATCHes with patterns", DrawPatternHatches, 500, 10},
    {"hatch-points", "points of a hatch's boundary", DrawHatchPoints, 10'000, 10},
};

// The time that a process takes before it reads the first item.
double StartTime(Runner& runner) {
  const std::string drawing = runner.Drawing("small", DrawSmall, 1);
  return runner.Measure({runner.Conversion(drawing)}, runner.settings.runs * 10).front().seconds;
}

void Measure(Runner& runner, const GrowthRow& row, double start) {
  const int64_t fewer = row.fewer / runner.settings.divisor, more = fewer * row.factor;
  const std::string small = runner.Drawing(row.name, row.draw, fewer);
  const std::string large = runner.Drawing(row.name, row.draw, more);
  const Work work = runner.Conversion(large);
  const auto results = runner.Measure({runner.Conversion(small), work}, runner.settings.runs);
  const double shortItem = (results[0].seconds - start) / static_cast<double>(fewer);
  const double longItem = (results[1].seconds - start) / static_cast<double>(more);
  PrintRow({row.items, CountText(fewer), TimeText(shortItem), CountText(more), TimeText(results[1].seconds),
            TimeText(longItem), RatioText(longItem / shortItem), CountText(SizeOfOutput(work) / more),
            BytesText(std::max<int64_t>(results[1].peakBytes - SizeOfOutput(work), 0))});
  Runner::Remove(small);
  Runner::Remove(large);
}

}  // namespace

std::vector<std::string> GrowthRows() {
  std::vector<std::string> names;
  for (const GrowthRow& row : growthRows) names.push_back(row.name);
  return names;
}

void MeasureGrowth(Runner& runner, const std::vector<std::string>& rows) {
  if (rows.empty()) return;
  const double start = StartTime(runner);
  PrintHeading({"items", "n", "time of an item", "m", "time of all", "time of an item", "ratio (1 is linear)",
                "bytes of an item in the metafile", "memory beyond the metafile"});
  for (const GrowthRow& row : growthRows)
    if (std::find(rows.begin(), rows.end(), row.name) != rows.end()) Measure(runner, row, start);
}

}  // namespace hexlume::bench
