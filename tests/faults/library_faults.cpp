// Lets each call of a kind fail once, in turn, while drawings are converted in one process:
// hexlume_library_faults [--sample] DRAWING ...
//
// A conversion may fail then, and must say so; otherwise it must give the same bytes as ever. After each failure the same
// conversion must succeed, and no memory and no open file may be left. --sample takes every 7th call, and
// a slow drawing has fewer of them.
#include <chrono>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

#include "faults/injector.h"
#include "hexlume.h"
#include "hexlume_host.h"

namespace {

namespace fs = std::filesystem;

constexpr RECT quarter = {0, 0, 21000, 14850};

struct Outcome {
  std::string status;  // "ok", or what the call says otherwise
  std::string metafile;

  bool operator==(const Outcome& other) const { return status == other.status && metafile == other.metafile; }
};

std::string BitsOf(HENHMETAFILE metafile) {
  std::string bytes(GetEnhMetaFileBits(metafile, 0, nullptr), '\0');
  GetEnhMetaFileBits(metafile, static_cast<UINT>(bytes.size()), reinterpret_cast<uint8_t*>(bytes.data()));
  return bytes;
}

int32_t CallExport(const char* path, int way, HENHMETAFILE* out) {
  switch (way) {
    case 0: return vzDXFMetaMake(path, out, 0, 0, 0);
    case 1: return vzDXFReMetaMake(path, out, 0, quarter, 1, 0, 0);
    case 2: return vzDXFFullSizeMetaMake(path, out, 0, 1, 1);
    default: return vzDXFRotMetaMake(out, 0);
  }
}

struct Ending {
  int32_t code = 0;
  bool thrown = false;
};

Ending EndingOf(const char* path, int way, HENHMETAFILE* out) {
  try {
    return {CallExport(path, way, out), false};
  } catch (int32_t code) {
    return {code, true};
  }
}

// The text of the outcome is made after the calls count no more.
template <typename Call>
auto Counting(int32_t kind, int64_t call, int64_t* reached, Call run) {
  hexlume_fault_arm(kind, call);
  auto result = run();
  *reached = hexlume_fault_disarm();
  return result;
}

Outcome RunExport(const char* path, int way, int32_t kind, int64_t call, int64_t* reached) {
  HENHMETAFILE metafile = nullptr;
  const Ending ending = Counting(kind, call, reached, [&] { return EndingOf(path, way, &metafile); });
  Outcome outcome;
  outcome.metafile = BitsOf(metafile);
  DeleteEnhMetaFile(metafile);
  outcome.status = ending.thrown ? "thrown " : "code ";
  outcome.status += std::to_string(ending.code);
  if (!ending.thrown && ending.code == 0 && !outcome.metafile.empty()) outcome.status = "ok";
  return outcome;
}

hexlume_options OptionsOf(int way) {
  hexlume_options options = {};
  options.size = sizeof options;
  switch (way) {
    case 1: options.turned = 1; break;
    case 2:
      options.sheet = HEXLUME_SHEET_PART;
      options.right = quarter.right;
      options.bottom = quarter.bottom;
      break;
    case 3:
      options.sheet = HEXLUME_SHEET_FULL_SIZE;
      options.skip_off_layers = 1;
      break;
  }
  return options;
}

// All that an inspection says, in one text.
std::string InspectionOf(const hexlume_result* result) {
  std::string text;
  for (int64_t i = 0; const hexlume_layer* layer = hexlume_result_layer(result, i); ++i)
    text += std::string("layer ") + layer->name + '\n';
  for (int64_t i = 0; const hexlume_block* block = hexlume_result_block(result, i); ++i)
    text += std::string("block ") + block->name + '\n';
  for (int64_t i = 0; const hexlume_entities* row = hexlume_result_entities(result, i); ++i)
    text += std::string(row->kind) + ' ' + row->layer + ' ' + std::to_string(row->count) + '\n';
  for (int64_t i = 0; const hexlume_text* row = hexlume_result_text(result, i); ++i)
    text += std::string("text ") + row->text + '\n';
  return text;
}

constexpr int inspection = 4;

Outcome RunHost(const char* path, int way, int32_t kind, int64_t call, int64_t* reached) {
  hexlume_input input = {};
  input.size = sizeof input;
  input.path = path;
  const hexlume_options options = OptionsOf(way);
  hexlume_result* result = nullptr;
  const int32_t status = Counting(kind, call, reached, [&] {
    return way == inspection ? hexlume_inspect(&input, &options, &result)
                             : hexlume_convert(&input, &options, &result);
  });
  Outcome outcome;
  outcome.status = hexlume_status_name(status);
  if (result) {
    outcome.metafile = InspectionOf(result);
    const auto* const bytes = reinterpret_cast<const char*>(hexlume_result_metafile(result));
    if (bytes) outcome.metafile.append(bytes, static_cast<size_t>(hexlume_result_metafile_size(result)));
  }
  hexlume_result_free(result);
  return outcome;
}

constexpr int exportWays = 4, hostWays = 5;

const char* const wayNames[exportWays + hostWays] = {
    "vzDXFMetaMake", "vzDXFReMetaMake", "vzDXFFullSizeMetaMake", "vzDXFRotMetaMake", "host, whole",
    "host, turned",  "host, part",      "host, full size",       "host, inspection"};

Outcome Run(const char* path, int way, int32_t kind = FAULT_NONE, int64_t call = 0,
            int64_t* reached = nullptr) {
  int64_t ignored;
  if (!reached) reached = &ignored;
  return way < exportWays ? RunExport(path, way, kind, call, reached)
                          : RunHost(path, way - exportWays, kind, call, reached);
}

size_t OpenFiles() {
  const fs::directory_iterator files("/proc/self/fd");
  return static_cast<size_t>(std::distance(begin(files), end(files)));
}

struct KindRow {
  int32_t kind;
  const char* name;
  // What the host library may say.
  std::vector<std::string> statuses;
};

const KindRow kindRows[] = {
    {FAULT_MEMORY, "memory", {"no-memory"}},
    {FAULT_READ, "read", {"not-allowed"}},
    {FAULT_OPEN, "open", {"not-allowed", "no-memory"}},
    {FAULT_CLOSE, "close", {}},
    {FAULT_FONT, "font", {"no-memory"}},
};

uint32_t WordAt(const std::string& bytes, size_t place) {
  uint32_t word = 0;
  if (place + sizeof word <= bytes.size()) std::memcpy(&word, &bytes[place], sizeof word);
  return word;
}

// Whether a metafile has the first records of another one, and then ends.
bool IsBeginningOf(const std::string& metafile, const std::string& whole) {
  constexpr size_t endRecordSize = 20;
  const size_t header = WordAt(metafile, 4);
  if (metafile.size() < header + endRecordSize || metafile.size() > whole.size()) return false;
  return metafile.compare(header, metafile.size() - header - endRecordSize, whole, header,
                          metafile.size() - header - endRecordSize) == 0;
}

struct Tally {
  long runs = 0;
  long failed = 0;  // conversions that said so
  long wrong = 0;
};

class Trial {
 public:
  Trial(const char* drawing, int usedWay, const KindRow& usedRow, Tally& counted)
      : path(drawing), way(usedWay), row(usedRow), tally(counted) {}

  void RunAll(int64_t step) {
    // The first runs load fonts and leave the values of the drawing in the record.
    Run(path, way);
    const auto start = std::chrono::steady_clock::now();
    expected = Run(path, way);
    // A slow drawing has fewer tries, such as one whose blocks fill the whole stack before they end in a fault.
    step *= 1 + (std::chrono::steady_clock::now() - start) / std::chrono::milliseconds(2);
    blocks = hexlume_fault_blocks();
    files = OpenFiles();
    for (int64_t call = 1;; call += step) {
      if (!CheckFailing(call)) break;
      CheckNext(call);
    }
    if (OpenFiles() != files) Complain(0, "open files are left");
  }

 private:
  // False if there are fewer calls.
  bool CheckFailing(int64_t call) {
    int64_t reached = 0;
    const Outcome outcome = Run(path, way, row.kind, call, &reached);
    if (reached < call) return false;
    ++tally.runs;
    Check(call, outcome);
    return true;
  }

  void Check(int64_t call, const Outcome& outcome) {
    if (outcome == expected) return;
    ++tally.failed;
    // To the nine exports a read that fails is the end of the drawing.
    if (way < exportWays && row.kind == FAULT_READ && IsBeginningOf(outcome.metafile, expected.metafile))
      return;
    if (outcome.status == "ok") return Complain(call, "another picture, and no word of it");
    if (way < exportWays) return;
    for (const std::string& status : row.statuses)
      if (outcome.status == status) return;
    Complain(call, "the status is " + outcome.status);
  }

  void CheckNext(int64_t call) {
    RunNext(call);
    if (hexlume_fault_blocks() == blocks) return;
    // A font that is used for the first time stays in memory. What the same failure leaves again is lost.
    blocks = hexlume_fault_blocks();
    Run(path, way, row.kind, call);
    RunNext(call);
    if (hexlume_fault_blocks() > blocks)
      Complain(call, std::to_string(hexlume_fault_blocks() - blocks) + " blocks of memory are left");
    blocks = hexlume_fault_blocks();
  }

  // Values of the entity before stay in the record of the exports, so their second conversion counts.
  void RunNext(int64_t call) {
    if (way < exportWays) Run(path, way);
    if (!(Run(path, way) == expected)) Complain(call, "the next conversion gives something else");
  }

  void Complain(int64_t call, const std::string& words) {
    ++tally.wrong;
    std::printf("%s, %s, %s %lld: %s\n", path, wayNames[way], row.name, static_cast<long long>(call),
                words.c_str());
  }

  const char* path;
  int way;
  const KindRow& row;
  Tally& tally;
  Outcome expected;
  int64_t blocks = 0;
  size_t files = 0;
};

}  // namespace

int main(int argc, char** argv) {
  const bool isSample = argc > 1 && std::strcmp(argv[1], "--sample") == 0;
  const int first = isSample ? 2 : 1;
  if (first >= argc) {
    std::fputs("usage: hexlume_library_faults [--sample] DRAWING ...\n", stderr);
    return 64;
  }
  std::printf("| calls that fail | conversions | said so | wrong |\n|---|--:|--:|--:|\n");
  long wrong = 0;
  for (const KindRow& row : kindRows) {
    Tally tally;
    for (int i = first; i < argc; ++i)
      for (int way = 0; way < exportWays + hostWays; ++way) {
        // vzDXFRotMetaMake turns the last one.
        if (way == 3) Run(argv[i], 0);
        Trial(argv[i], way, row, tally).RunAll(isSample ? 7 : 1);
      }
    std::printf("| %s | %ld | %ld | %ld |\n", row.name, tally.runs, tally.failed, tally.wrong);
    std::fflush(stdout);
    wrong += tally.wrong;
  }
  return wrong == 0 ? 0 : 1;
}
