// Prints what the host library gives for drawings, for a comparison with the web build: hexlume_host_digest < LIST.
// Each line of the list is a path. host_digest.ts prints the same for the module.
#include <hexlume_host.h>

#include <cinttypes>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

namespace {

struct Way {
  const char* name;
  void (*set)(hexlume_options& options);
};

const char* const layers[] = {"0", "TEXT", "\xE5\xAF\xB8\xE6\xB3\x95", "no such layer"};

const Way ways[] = {
    {"plain", [](hexlume_options&) {}},
    {"as is", [](hexlume_options& options) { options.format = HEXLUME_FORMAT_AS_IS; }},
    {"turned", [](hexlume_options& options) { options.turned = 1; }},
    {"full size, mono",
     [](hexlume_options& options) {
       options.sheet = HEXLUME_SHEET_FULL_SIZE;
       options.monochrome = 1;
     }},
    {"part",
     [](hexlume_options& options) {
       options.sheet = HEXLUME_SHEET_PART;
       options.left = 1000;
       options.top = 2000;
       options.right = 15000;
       options.bottom = 12000;
       options.whole_texts = 1;
     }},
    {"half width, fit, 1:50",
     [](hexlume_options& options) {
       options.half_width = 1;
       options.fit = 1;
       options.denominator = 50;
     }},
    {"left out",
     [](hexlume_options& options) {
       options.skip_off_layers = 1;
       options.hidden_line_types = HEXLUME_LINES_DASHED | HEXLUME_LINES_CHAIN;
       options.hidden_layers = layers;
       options.hidden_layer_count = 4;
     }},
    {"limits",
     [](hexlume_options& options) {
       options.limit_strokes = 100;
       options.limit_bytes = 5000;
     }},
};

uint32_t Hash(const uint8_t* bytes, int64_t size, uint32_t start) {
  uint32_t hash = start;
  for (int64_t i = 0; i < size; ++i) hash = (hash ^ bytes[i]) * 16777619U;
  return hash;
}

void PrintResult(const hexlume_result* result) {
  std::printf("%s | %s | %s | line %" PRId64, hexlume_status_name(hexlume_result_status(result)),
              hexlume_result_message(result, HEXLUME_ENGLISH),
              hexlume_result_message(result, HEXLUME_JAPANESE), hexlume_result_line(result));
  for (int32_t number = HEXLUME_NUMBER_SHEET_WIDTH; number < HEXLUME_NUMBER_MILLISECONDS; ++number)
    if (number != HEXLUME_NUMBER_STROKES) std::printf(" %" PRId64, hexlume_result_number(result, number));
  std::printf("\n");
  for (int64_t i = 0; const hexlume_remark* remark = hexlume_result_remark(result, i); ++i)
    std::printf("remark %s %" PRId64 " %" PRId64 " %s | %s | %s\n", remark->name, remark->line, remark->count,
                remark->detail, remark->english, remark->japanese);
}

void Convert(const hexlume_input& input, const Way& way) {
  hexlume_options options;
  hexlume_options_init(&options, sizeof options);
  way.set(options);
  hexlume_result* result = nullptr;
  hexlume_convert(&input, &options, &result);
  std::printf("-- %s: ", way.name);
  PrintResult(result);
  const uint8_t* const bytes = hexlume_result_metafile(result);
  const int64_t size = hexlume_result_metafile_size(result);
  std::printf("strokes %" PRId64 ", metafile %" PRId64 " %08x %08x\n",
              hexlume_result_number(result, HEXLUME_NUMBER_STROKES), size, Hash(bytes, size, 2166136261U),
              Hash(bytes, size, 1));
  hexlume_result_free(result);
}

void PrintBox(const char* name, int32_t is, const double* box) {
  if (is) std::printf(" %s %.6f %.6f %.6f %.6f", name, box[0], box[1], box[2], box[3]);
}

void PrintSummary(const hexlume_summary* summary) {
  if (!summary) return;
  std::printf("summary %s %.6f %" PRId32 " %" PRId32 " %" PRId32, summary->version, summary->scale,
              summary->sheet_width, summary->sheet_height, summary->denominator);
  PrintBox("limits", summary->has_limits, summary->limits);
  PrintBox("extents", summary->has_extents, summary->extents);
  std::printf("\n");
}

void PrintTables(const hexlume_result* result) {
  for (int64_t i = 0; const hexlume_layer* layer = hexlume_result_layer(result, i); ++i)
    std::printf("layer %s %" PRId32 " %s %" PRId32 "\n", layer->name, layer->color, layer->line_type,
                layer->shown);
  for (int64_t i = 0; const hexlume_line_type* type = hexlume_result_line_type(result, i); ++i)
    std::printf("line type %s %" PRId32 "\n", type->name, type->elements);
  for (int64_t i = 0; const hexlume_dim_style* style = hexlume_result_dim_style(result, i); ++i)
    std::printf("dim style %s\n", style->name);
  for (int64_t i = 0; const hexlume_block* block = hexlume_result_block(result, i); ++i)
    std::printf("block %s %" PRId64 " %" PRId64 "\n", block->name, block->entities, block->line);
}

void PrintContents(const hexlume_result* result) {
  for (int64_t i = 0; const hexlume_entities* row = hexlume_result_entities(result, i); ++i)
    std::printf("entities %s %s %" PRId64 " %" PRId64 " %" PRId32 " %" PRId32 "\n", row->kind, row->layer,
                row->count, row->count_in_blocks, row->drawn, row->drawn_in_blocks);
  for (int64_t i = 0; const hexlume_text* text = hexlume_result_text(result, i); ++i)
    std::printf("text %s %s %s %.6f %.6f %.6f %.6f %" PRId64 " %s\n", text->kind, text->layer, text->block,
                text->x, text->y, text->height, text->angle, text->line, text->text);
}

void Inspect(const hexlume_input& input) {
  hexlume_result* result = nullptr;
  hexlume_inspect(&input, nullptr, &result);
  std::printf("-- inspection: ");
  PrintResult(result);
  PrintSummary(hexlume_result_summary(result));
  PrintTables(result);
  PrintContents(result);
  hexlume_result_free(result);
}

}  // namespace

int main() {
  std::string path;
  while (std::getline(std::cin, path)) {
    std::ifstream file(path, std::ios::binary);
    const std::vector<char> bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    hexlume_input input = {};
    input.size = sizeof input;
    input.bytes = bytes.empty() ? "" : bytes.data();
    input.byte_count = static_cast<int64_t>(bytes.size());
    std::printf("== %s\n", path.c_str());
    for (const Way& way : ways) Convert(input, way);
    Inspect(input);
  }
  return 0;
}
