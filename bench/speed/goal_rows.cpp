#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "bench/speed/rows.h"
#include "bench/speed/table.h"

namespace hexlume::bench {

namespace {

namespace fs = std::filesystem;

constexpr int64_t allLines = 1'000'000;
constexpr int64_t aHundredThousand = 100'000;

std::string LinesDrawing(Runner& runner) {
  return runner.Drawing("lines", DrawLines, allLines / runner.settings.divisor);
}

// "100,000 TEXTs", and the size of their drawing.
std::string Heading(const Runner& runner, int64_t items, const std::string& words,
                    const std::string& drawing) {
  return CountText(items / runner.settings.divisor) + ' ' + words + " (" +
         BytesText(static_cast<int64_t>(fs::file_size(drawing))) + ')';
}

// A row with the ratio of two works.
void Compare(const Runner& runner, const std::string& heading, const Work& work, const std::string& baseName,
             const Work& base, const std::string& goal) {
  const auto times = runner.Measure({work, base}, runner.settings.runs);
  PrintRow({heading, TimeText(times[0].seconds), baseName, TimeText(times[1].seconds),
            RatioText(times[0].seconds / times[1].seconds), goal});
}

void MeasureLines(Runner& runner) {
  const std::string drawing = LinesDrawing(runner);
  Compare(runner, Heading(runner, allLines, "LINEs", drawing), runner.Conversion(drawing),
          "the bare reader, which doesn't write", runner.BareReader(drawing), "0.65");
}

bool AreEqual(const std::string& path, const std::string& other) {
  std::ifstream first(path, std::ios::binary), second(other, std::ios::binary);
  using Bytes = std::istreambuf_iterator<char>;
  return std::equal(Bytes(first), Bytes(), Bytes(second), Bytes());
}

// Both drawings must give the same strokes, or the comparison says nothing.
void MeasureInserts(Runner& runner) {
  const int64_t inserts = aHundredThousand / runner.settings.divisor;
  const std::string blocks = runner.Drawing("inserts", DrawBlockOfTen, inserts);
  const std::string flat = runner.Drawing("flat", DrawFlatTens, inserts);
  const Work work = runner.Conversion(blocks), base = runner.Conversion(flat);
  Compare(runner, Heading(runner, aHundredThousand, "INSERTs of a block of ten LINEs", blocks), work,
          "the same strokes as LINEs (" + BytesText(static_cast<int64_t>(fs::file_size(flat))) + ')', base,
          "0.5");
  if (!AreEqual(work.output, base.output)) PrintRow({"the two metafiles differ", "", "", "", "", ""});
}

void MeasureLwPolylines(Runner& runner) {
  const std::string drawing =
      runner.Drawing("lwpolylines", DrawLwPolylines, aHundredThousand / runner.settings.divisor);
  Compare(runner, Heading(runner, aHundredThousand, "LWPOLYLINEs of 24 vertices", drawing),
          runner.Conversion(drawing), "the bare reader", runner.BareReader(drawing), "1.5");
}

void MeasureTexts(Runner& runner) {
  const int64_t texts = aHundredThousand / runner.settings.divisor;
  const std::string drawing = runner.Drawing("texts", DrawTexts, texts);
  const auto times =
      runner.Measure({runner.Conversion(drawing), runner.BareReader(drawing)}, runner.settings.runs);
  PrintRow({Heading(runner, aHundredThousand, "TEXTs", drawing), TimeText(times[0].seconds),
            "the bare reader", TimeText(times[1].seconds),
            TimeText(times[0].seconds / static_cast<double>(texts)) + " a text", "1.5 us"});
}

void MeasureStart(Runner& runner) {
  constexpr int64_t lines = 20;  // 2 KB
  const std::string drawing = runner.Drawing("small", DrawSmall, lines);
  const auto times =
      runner.Measure({runner.Conversion(drawing), runner.BareReader(drawing)}, runner.settings.runs * 20);
  PrintRow({"start, and a drawing of " + BytesText(static_cast<int64_t>(fs::file_size(drawing))),
            TimeText(times[0].seconds), "the bare reader", TimeText(times[1].seconds),
            TimeText(times[0].seconds), "2 ms"});
}

void MeasureMemory(Runner& runner) {
  const std::string drawing = LinesDrawing(runner);
  const Work work = runner.Conversion(drawing);
  const int64_t peak = runner.Measure({work}, 1).front().peakBytes;
  const int64_t beyond = std::max<int64_t>(peak - SizeOfOutput(work), 0);
  fs::remove(work.output);
  const int64_t ofItsOwn = PeakOfOwnMemory(work.command);
  PrintRow({"peak memory, " + Heading(runner, allLines, "LINEs", drawing), BytesText(peak),
            "the metafile; of its own, not of mapped files, it had " + BytesText(ofItsOwn),
            BytesText(SizeOfOutput(work)), BytesText(beyond) + " beyond the metafile", "10 MB"});
}

// Windows programs run through Wine.
void MeasureWindows(Runner& runner, const std::string& preset) {
  const auto onDriveZ = [](const std::string& path) { return "Z:" + path; };
  const std::string programs = runner.settings.root + "/build/" + preset + "/bin/";
  for (const char* program : {"hexlume.exe", "hexlume_gdi_calls.exe"})
    if (!fs::exists(programs + program)) {
      PrintRow(
          {preset, "not measured", "build/" + preset + "/bin/" + program + " is missing", "", "", "1.15"});
      return;
    }
  const std::string drawing = LinesDrawing(runner), calls = drawing + ".calls";
  const std::string wine = runner.settings.root + "/scripts/wine.sh";
  const Work work = {{wine, programs + "hexlume.exe", onDriveZ(drawing), onDriveZ(drawing + ".emf")},
                     drawing + ".emf"};
  const std::string lines = std::to_string(allLines / runner.settings.divisor);
  const Work base = {{wine, programs + "hexlume_gdi_calls.exe", lines, onDriveZ(calls + ".emf")},
                     calls + ".emf"};
  Compare(runner, preset + " under Wine, " + Heading(runner, allLines, "LINEs", drawing), work,
          "the same GDI calls, saved", base, "1.15");
  Runner::Remove(calls);
}

void MeasureX64(Runner& runner) {
  MeasureWindows(runner, "win-x64");
}

void MeasureX86(Runner& runner) {
  MeasureWindows(runner, "win-x86");
}

struct GoalRow {
  const char* name;
  void (*measure)(Runner& runner);
};

constexpr GoalRow goalRows[] = {
    {"lines", MeasureLines}, {"inserts", MeasureInserts}, {"lwpolylines", MeasureLwPolylines},
    {"texts", MeasureTexts}, {"start", MeasureStart},     {"win-x64", MeasureX64},
    {"win-x86", MeasureX86}, {"memory", MeasureMemory},
};

}  // namespace

std::vector<std::string> GoalRows() {
  std::vector<std::string> names;
  for (const GoalRow& row : goalRows) names.push_back(row.name);
  return names;
}

void MeasureGoals(Runner& runner, const std::vector<std::string>& rows) {
  if (rows.empty()) return;
  PrintHeading({"work", "hexlume", "beside", "", "result", "goal"});
  for (const GoalRow& row : goalRows)
    if (std::find(rows.begin(), rows.end(), row.name) != rows.end()) row.measure(runner);
}

}  // namespace hexlume::bench
