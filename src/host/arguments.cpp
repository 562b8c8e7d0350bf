#include "host/arguments.h"

#include <algorithm>
#include <cstring>

#include "host/utf8.h"

namespace hexlume {

namespace {

// Copies a struct that begins with its size, of this version or a later one.
template <typename Struct>
Struct TakeStruct(const Struct* given, const std::string& name) {
  constexpr uint32_t largestSize = 4096;  // a size beyond it is none
  if (!given) throw BadArgument(name + " must not be NULL");
  const uint32_t size = given->size;
  if (size < sizeof(Struct) || size > largestSize)
    throw BadArgument(name + ".size must be the size of the struct, " + std::to_string(sizeof(Struct)));
  const auto* const bytes = reinterpret_cast<const unsigned char*>(given);
  if (std::any_of(bytes + sizeof(Struct), bytes + size, [](unsigned char byte) { return byte != 0; }))
    throw BadArgument(name + " has options that this version of the library doesn't know");
  Struct taken;
  std::memcpy(&taken, given, sizeof taken);
  return taken;
}

void CheckRange(const char* name, int64_t value, int64_t least, int64_t most) {
  if (value >= least && value <= most) return;
  throw BadArgument(std::string("options.") + name + " must be from " + std::to_string(least) + " to " +
                    std::to_string(most));
}

void CheckLimit(const char* name, int64_t value) {
  if (value < 0) throw BadArgument(std::string("options.") + name + " must not be negative");
}

void CheckNumbers(const hexlume_options& options) {
  CheckRange("format", options.format, 0, HEXLUME_FORMAT_AS_IS);
  CheckRange("sheet", options.sheet, 0, HEXLUME_SHEET_PART);
  CheckRange("turned", options.turned, 0, 1);
  CheckRange("whole_texts", options.whole_texts, 0, 1);
  CheckRange("monochrome", options.monochrome, 0, 1);
  CheckRange("half_width", options.half_width, 0, 1);
  CheckRange("fit", options.fit, 0, 1);
  CheckRange("denominator", options.denominator, 0, 1000);
  CheckRange("skip_off_layers", options.skip_off_layers, 0, 1);
  CheckRange("hidden_line_types", options.hidden_line_types, 0, 31);
  CheckLimit("limit_milliseconds", options.limit_milliseconds);
  CheckLimit("limit_strokes", options.limit_strokes);
  CheckLimit("limit_bytes", options.limit_bytes);
  const bool part = options.sheet == HEXLUME_SHEET_PART;
  if (part && options.turned) throw BadArgument("options.turned must be 0 for a part of the sheet");
  if (!part && options.whole_texts) throw BadArgument("options.whole_texts is for a part of the sheet only");
}

std::vector<HiddenLayer> TakeLayers(const hexlume_options& options) {
  std::vector<HiddenLayer> layers;
  CheckLimit("hidden_layer_count", options.hidden_layer_count);
  if (options.hidden_layer_count > 0 && !options.hidden_layers)
    throw BadArgument("options.hidden_layers must not be NULL");
  for (int32_t i = 0; i < options.hidden_layer_count; ++i) {
    const char* const name = options.hidden_layers[i];
    if (!name || !IsUtf8(name))
      throw BadArgument("options.hidden_layers[" + std::to_string(i) + "] must be a text in UTF-8");
    layers.push_back({name, {}});
    AppendCodePage932(name, layers.back().inCodePage932);
  }
  return layers;
}

std::string TakePath(const hexlume_input& input) {
  if (input.path_length == 0) return input.path;
  if (input.path_length < 0 || input.path_length > INT32_MAX)
    throw BadArgument("input.path_length must be the length of the path");
  std::string path(input.path, static_cast<size_t>(input.path_length));
  if (path.find('\0') != std::string::npos) throw BadArgument("input.path must have no byte 0");
  return path;
}

}  // namespace

bool HostOptions::AnswersSelection() const {
  return plain.skip_off_layers || plain.hidden_line_types != 0 || !hiddenLayers.empty();
}

HostInput TakeInput(const hexlume_input* given) {
  const hexlume_input input = TakeStruct(given, "input");
  if (input.reserved != 0) throw BadArgument("input.reserved must be 0");
  if (!input.path == !input.bytes) throw BadArgument("input must have either a path or bytes");
  HostInput taken;
  if (input.path) {
    taken.path = TakePath(input);
    return taken;
  }
  if (input.byte_count < 0) throw BadArgument("input.byte_count must not be negative");
  taken.bytes = static_cast<const char*>(input.bytes);
  taken.byteCount = input.byte_count;
  return taken;
}

HostOptions TakeOptions(const hexlume_options* given) {
  HostOptions options;
  if (!given) return options;
  options.plain = TakeStruct(given, "options");
  CheckNumbers(options.plain);
  options.hiddenLayers = TakeLayers(options.plain);
  return options;
}

}  // namespace hexlume
