// Prints digests of what drawings give in several ways, to compare builds: scripts/compare_random.py. Each line of standard
// input is a request:
//
//   odd FIRST COUNT         the drawings of OddDrawing with these seeds
//   file PATH               a drawing
//   list WAY PATH           the listing of a drawing in one way, then a line "end"
//   write SEED PATH         writes a drawing of OddDrawing
//
// The answer to the first two is a line for each drawing: its seed or path, and for each way the status, the line, and a
// hash of the listing of the metafile. What a metafile has beside its listing differs by system.
#include <cinttypes>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <iterator>
#include <sstream>
#include <streambuf>
#include <string>

#include "hexlume_host.h"
#include "support/random_drawing.h"
#include "tools/hexlume/metafile/metafile_listing.h"

namespace hexlume {

namespace {

using SetOptions = void (*)(hexlume_options& options);

void AskForPart(hexlume_options& options, int32_t left, int32_t top, int32_t right, int32_t bottom) {
  options.sheet = HEXLUME_SHEET_PART;
  options.left = left;
  options.top = top;
  options.right = right;
  options.bottom = bottom;
}

// All the conversions, each with other switches.
const SetOptions ways[] = {
    [](hexlume_options&) {},
    [](hexlume_options& options) { options.turned = 1; },
    [](hexlume_options& options) {
      options.sheet = HEXLUME_SHEET_FULL_SIZE;
      options.monochrome = 1;
    },
    [](hexlume_options& options) { AskForPart(options, 1000, 2000, 15000, 12000); },
    [](hexlume_options& options) {
      AskForPart(options, 0, 0, 30000, 21000);
      options.whole_texts = 1;
      options.half_width = 1;
    },
    [](hexlume_options& options) {
      options.sheet = HEXLUME_SHEET_FULL_SIZE;
      options.turned = 1;
      options.half_width = 1;
    },
    [](hexlume_options& options) {
      options.fit = 1;
      options.denominator = 7;
      options.skip_off_layers = 1;
      options.hidden_line_types = HEXLUME_LINES_DASHED | HEXLUME_LINES_DOTTED;
    },
};

constexpr int64_t mostStrokes = 20000;  // of a drawing whose pattern is so fine that it has millions

struct Answer {
  hexlume_result* result = nullptr;
  Answer() = default;
  ~Answer() { hexlume_result_free(result); }
  Answer(const Answer&) = delete;
  Answer& operator=(const Answer&) = delete;
};

void Convert(const std::string& drawing, SetOptions set, Answer& answer) {
  hexlume_input input = {};
  input.size = sizeof input;
  input.bytes = drawing.data();
  input.byte_count = static_cast<int64_t>(drawing.size());
  hexlume_options options;
  hexlume_options_init(&options, sizeof options);
  options.format = HEXLUME_FORMAT_AS_IS;
  options.limit_strokes = mostStrokes;
  set(options);
  hexlume_convert(&input, &options, &answer.result);
}

void List(const Answer& answer, std::ostream& out) {
  const uint8_t* const metafile = hexlume_result_metafile(answer.result);
  if (metafile) ListMetafile(metafile, static_cast<size_t>(hexlume_result_metafile_size(answer.result)), out);
}

// Hashes text as it comes: the listing of ten million records is too large for a program of 32 bits.
class HashBuffer : public std::streambuf {
 public:
  uint64_t hash = 14695981039346656037u;

 private:
  int overflow(int byte) override {
    if (byte != EOF) Add(static_cast<char>(byte));
    return 0;
  }
  std::streamsize xsputn(const char* text, std::streamsize count) override {
    for (std::streamsize i = 0; i < count; ++i) Add(text[i]);
    return count;
  }
  void Add(char byte) { hash = (hash ^ static_cast<uint8_t>(byte)) * 1099511628211u; }
};

uint64_t HashOfListing(const Answer& answer) {
  HashBuffer buffer;
  std::ostream out(&buffer);
  List(answer, out);
  return buffer.hash;
}

// How deep blocks within themselves are drawn differs by build. Of a drawing that ends so, the status alone is compared.
void PrintDigest(const std::string& name, const std::string& drawing) {
  std::printf("%s", name.c_str());
  for (const SetOptions set : ways) {
    Answer answer;
    Convert(drawing, set, answer);
    const int32_t status = hexlume_result_status(answer.result);
    std::printf(" %s", hexlume_status_name(status));
    if (status == HEXLUME_STATUS_FAULT) continue;
    std::printf(":%" PRId64 ":%" PRId64 ":%016" PRIx64, hexlume_result_line(answer.result),
                hexlume_result_number(answer.result, HEXLUME_NUMBER_STROKES), HashOfListing(answer));
  }
  std::printf("\n");
}

std::string ReadFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void PrintOddDrawings(uint32_t first, uint32_t count) {
  for (uint32_t seed = first; seed < first + count; ++seed) {
    PrintDigest(std::to_string(seed), OddDrawing(seed));
    std::fflush(stdout);
  }
}

void PrintListing(size_t way, const std::string& path) {
  Answer answer;
  Convert(ReadFile(path), ways[way % std::size(ways)], answer);
  std::cout << hexlume_result_message(answer.result, HEXLUME_ENGLISH) << '\n';
  List(answer, std::cout);
  std::cout << "end\n" << std::flush;
}

void AnswerRequest(const std::string& line) {
  std::istringstream words(line);
  std::string request;
  words >> request;
  uint32_t number = 0, count = 0;
  std::string path;
  if (request == "odd" && words >> number >> count) return PrintOddDrawings(number, count);
  if (request == "file" && words >> path) return PrintDigest(path, ReadFile(path));
  if (request == "list" && words >> number >> path) return PrintListing(number, path);
  if (request == "write" && words >> number >> path) {
    std::ofstream(path, std::ios::binary) << OddDrawing(number);
    std::printf("written\n");
    return;
  }
  std::printf("no such request: %s\n", line.c_str());
}

}  // namespace

}  // namespace hexlume

int main() {
  std::string line;
  while (std::getline(std::cin, line)) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    hexlume::AnswerRequest(line);
    std::fflush(stdout);
  }
  return 0;
}
