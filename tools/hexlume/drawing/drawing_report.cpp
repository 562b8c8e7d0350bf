#include "tools/hexlume/drawing/drawing_report.h"

#include <map>
#include <nlohmann/json.hpp>

#include "tools/hexlume/drawing/drawing_look.h"
#include "tools/hexlume/drawing/faces.h"
#include "tools/hexlume/drawing/host_convert.h"
#include "tools/hexlume/system/sha256.h"

namespace hexlume {
namespace {

using Json = nlohmann::ordered_json;

// A path can have bytes that aren't UTF-8: they are replaced.
std::string LineOf(const Json& json) {
  return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

Json OutputsOf(const DrawingResult& result) {
  Json outputs = Json::array();
  for (const WrittenOutput& output : result.outputs)
    outputs.push_back({{"path", output.file}, {"size", output.size}});
  return outputs;
}

Json RemarksOf(const Conversion& conversion) {
  Json remarks = Json::array();
  for (const Remark& remark : conversion.remarks)
    remarks.push_back({{"name", remark.name}, {"message", remark.words}, {"count", remark.count}});
  return remarks;
}

Json LayersOf(const host::Result& contents) {
  Json layers = Json::array();
  for (const hexlume_layer& layer : contents.Layers())
    layers.push_back({{"name", layer.name},
                      {"color", layer.color},
                      {"shown", layer.shown != 0},
                      {"lineType", layer.line_type}});
  return layers;
}

Json LineTypesOf(const host::Result& contents) {
  Json types = Json::array();
  for (const hexlume_line_type& type : contents.LineTypes())
    types.push_back({{"name", type.name}, {"elements", type.elements}});
  return types;
}

struct KindCount {
  bool drawn = false, drawnInBlocks = false;
  int64_t count = 0, inBlocks = 0;
};

// The library counts them on each layer.
Json EntitiesOf(const host::Result& contents) {
  std::map<std::string, KindCount> kinds;
  for (const hexlume_entities& row : contents.Entities()) {
    KindCount& kind = kinds[row.kind];
    kind.drawn = row.drawn != 0;
    kind.drawnInBlocks = row.drawn_in_blocks != 0;
    kind.count += row.count;
    kind.inBlocks += row.count_in_blocks;
  }
  Json entities = Json::array();
  for (const auto& [name, kind] : kinds)
    entities.push_back({{"kind", name},
                        {"drawn", kind.drawn},
                        {"count", kind.count},
                        {"drawnInBlocks", kind.drawnInBlocks},
                        {"countInBlocks", kind.inBlocks}});
  return entities;
}

Json TextsOf(const host::Result& contents) {
  Json texts = Json::array();
  for (const hexlume_text& text : contents.Texts())
    texts.push_back({{"text", text.text},
                     {"kind", text.kind},
                     {"layer", text.layer},
                     {"block", text.block},
                     {"line", text.line}});
  return texts;
}

Json MissingFacesOf(const MetafileBytes& metafile) {
  Json faces = Json::array();
  for (const std::string& face : FacesOf(metafile))
    if (!HasFont(face)) faces.push_back(face);
  return faces;
}

// What is in the drawing, as far as it could be read.
void AddContents(const host::Result& contents, Json& json) {
  const hexlume_summary* const summary = contents.Summary();
  if (!summary) return;
  constexpr double hundredths = 100;
  json["version"] = summary->version;
  json["sheet"] = {{"width", summary->sheet_width / hundredths},
                   {"height", summary->sheet_height / hundredths}};
  json["scale"] = {{"unitsPerMillimetre", summary->scale}, {"denominator", summary->denominator}};
  json["layers"] = LayersOf(contents);
  json["lineTypes"] = LineTypesOf(contents);
  json["entities"] = EntitiesOf(contents);
  json["texts"] = TextsOf(contents);
}

Json StartOf(const std::string& path, const std::string& status, const std::string& words) {
  return {{"path", path}, {"status", status}, {"message", words}, {"unchanged", false}};
}

}  // namespace

std::string DescribeDrawing(const DrawingSource& source, const Options& options, const Conversion& conversion,
                            const DrawingResult& result, double milliseconds) {
  Json json = StartOf(source.path, result.status, result.words);
  json["outputs"] = OutputsOf(result);
  json["remarks"] = RemarksOf(conversion);
  json["milliseconds"] = milliseconds;
  json["size"] = source.bytes ? static_cast<int64_t>(source.bytes->size()) : result.drawing.size;
  if (source.bytes) json["sha256"] = Sha256(*source.bytes);
  if (conversion.metafile.empty()) return LineOf(json);
  json["strokes"] = conversion.strokes;
  json["substituted"] = conversion.substituted;
  json["embedded"] = conversion.embedded;
  json["missingFaces"] = MissingFacesOf(conversion.metafile);
  DrawingParts parts(source);
  const bool isUtf8 = !options.asIs && EncodingOf(parts) == Encoding::utf8;
  const int32_t format = isUtf8 ? HEXLUME_FORMAT_AUTO : HEXLUME_FORMAT_AS_IS;
  AddContents(CallHost(hexlume_inspect, source, HostOptionsOf(options, format)), json);
  return LineOf(json);
}

std::string DescribeFailure(const std::string& path, const std::string& status, const std::string& words) {
  Json json = StartOf(path, status, words);
  json["outputs"] = Json::array();
  json["remarks"] = Json::array();
  return LineOf(json);
}

std::string DescribeUnchanged(const std::string& earlier) {
  Json json = Json::parse(earlier, nullptr, false);
  if (json.is_object()) json["unchanged"] = true;
  return LineOf(json);
}

}  // namespace hexlume
