#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "bench/speed/rows.h"
#include "bench/speed/table.h"

namespace hexlume::bench {

namespace {

namespace fs = std::filesystem;

struct Subject {
  const char* name;
  Draw draw;
  int64_t items;
  const char* words;
};

constexpr Subject lines = {"lines", DrawLines, 1'000'000, "LINEs"};
constexpr Subject inserts = {"inserts", DrawBlockOfTen, 100'000, "INSERTs of a block of ten LINEs"};
constexpr Subject flatTens = {"flat", DrawFlatTens, 100'000, "times ten LINEs"};
constexpr Subject lwPolylines = {"lwpolylines", DrawLwPolylines, 100'000, "LWPOLYLINEs of 23 vertices"};
constexpr Subject texts = {"texts", DrawTexts, 100'000, "TEXTs"};
constexpr Subject start = {"small", DrawSmall, 20, "LINEs, a start"};

int64_t ItemsOf(const Subject& subject, const Settings& settings) {
  return subject.items / settings.divisor;
}

std::string DrawingOf(Runner& runner, const Subject& subject) {
  return runner.Drawing(subject.name, subject.draw, ItemsOf(subject, runner.settings));
}

// "100,000 TEXTs (8.4 MB)"
std::string Heading(Runner& runner, const Subject& subject) {
  return CountText(ItemsOf(subject, runner.settings)) + ' ' + subject.words + " (" +
         BytesText(static_cast<int64_t>(fs::file_size(DrawingOf(runner, subject)))) + ')';
}

// A row with the ratio of two works.
void Compare(const Runner& runner, const std::string& heading, const Work& work, const std::string& baseName,
             const Work& base, const std::string& goal, double Measured::*time = &Measured::seconds) {
  const auto results = runner.Measure({work, base}, GoalRuns(runner.settings));
  const double workTime = results[0].*time, baseTime = results[1].*time;
  PrintRow({heading, TimeText(workTime), baseName, TimeText(baseTime), RatioText(workTime / baseTime), goal});
}

void CompareWithBareReader(Runner& runner, const Subject& subject, const std::string& goal) {
  const std::string drawing = DrawingOf(runner, subject);
  Compare(runner, Heading(runner, subject), runner.Conversion(drawing), "bare reader, which writes nothing",
          runner.BareReader(drawing), goal);
}

void MeasureLines(Runner& runner) {
  CompareWithBareReader(runner, lines, "0.65");
}

void MeasureLwPolylines(Runner& runner) {
  CompareWithBareReader(runner, lwPolylines, "1.5");
}

bool AreEqual(const std::string& path, const std::string& other) {
  std::ifstream first(path, std::ios::binary), second(other, std::ios::binary);
  using Bytes = std::istreambuf_iterator<char>;
  return std::equal(Bytes(first), Bytes(), Bytes(second), Bytes());
}

// The comparison only counts if both drawings give the same metafile.
void MeasureInserts(Runner& runner) {
  const Work work = runner.Conversion(DrawingOf(runner, inserts));
  const Work base = runner.Conversion(DrawingOf(runner, flatTens));
  Compare(runner, Heading(runner, inserts), work, "the same strokes: " + Heading(runner, flatTens), base,
          "0.5");
  if (!AreEqual(work.output, base.output)) PrintRow({"the two metafiles differ", "", "", "", "", ""});
}

void MeasureTexts(Runner& runner) {
  const std::string drawing = DrawingOf(runner, texts);
  const auto results =
      runner.Measure({runner.Conversion(drawing), runner.BareReader(drawing)}, GoalRuns(runner.settings));
  const auto items = static_cast<double>(ItemsOf(texts, runner.settings));
  PrintRow({Heading(runner, texts), TimeText(results[0].seconds), "bare reader", TimeText(results[1].seconds),
            TimeText(results[0].seconds / items) + " a text", "1.5 us"});
}

void MeasureStart(Runner& runner) {
  const std::string drawing = DrawingOf(runner, start);
  const auto results =
      runner.Measure({runner.Conversion(drawing), runner.BareReader(drawing)}, runner.settings.runs * 20);
  PrintRow({Heading(runner, start), TimeText(results[0].seconds), "bare reader", TimeText(results[1].seconds),
            TimeText(results[0].seconds), "2 ms"});
}

void MeasureMemory(Runner& runner) {
  const Work work = runner.Conversion(DrawingOf(runner, lines));
  const int64_t peak = runner.Measure({work}, 1).front().peakBytes;
  const int64_t metafile = SizeOfOutput(work);
  fs::remove(work.output);
  const int64_t ofItsOwn = PeakOfOwnMemory(work.command);
  PrintRow({"peak memory, " + Heading(runner, lines),
            BytesText(peak) + ", of these " + BytesText(ofItsOwn) + " not of mapped files", "the metafile",
            BytesText(metafile), BytesText(std::max<int64_t>(peak - metafile, 0)) + " beyond it", "10 MB"});
}

// Windows programs run through Wine, which doesn't hand on the processor time of all of them.
void MeasureWindows(Runner& runner, const std::string& preset) {
  constexpr const char* goal = "1.15";
  const auto onDriveZ = [](const std::string& path) { return "Z:" + path; };
  const std::string programs = runner.settings.root + "/build/" + preset + "/bin/";
  for (const char* program : {"hexlume.exe", "hexlume_gdi_calls.exe"})
    if (!fs::exists(programs + program))
      return PrintRow({preset, "not measured", "scripts/build.sh " + preset + " benches", "", "", goal});
  const std::string drawing = DrawingOf(runner, lines);
  const std::string metafile = drawing + ".emf", calls = drawing + ".calls.emf";
  const std::string wine = runner.settings.root + "/scripts/wine.sh";
  const Work work = {
      {wine, programs + "hexlume.exe", onDriveZ(drawing), onDriveZ(metafile)}, metafile, drawing};
  const std::string count = std::to_string(ItemsOf(lines, runner.settings));
  const Work base = {{wine, programs + "hexlume_gdi_calls.exe", count, onDriveZ(calls)}, calls, ""};
  Compare(runner, preset + " under Wine, " + Heading(runner, lines), work, "the same GDI calls, and saving",
          base, goal, &Measured::wallSeconds);
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

void WriteDrawings(const Settings& settings) {
  for (const Subject& subject : {lines, inserts, lwPolylines, texts, start})
    WriteDrawing(settings.drawings + '/' + subject.name + ".dxf", subject.draw, ItemsOf(subject, settings));
}

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
