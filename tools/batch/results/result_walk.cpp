#include "tools/batch/results/result_walk.h"

#include "tools/batch/base/text.h"
#include "tools/batch/plan/folder.h"
#include "tools/batch/results/earlier_results.h"

namespace hexlume::batch {
namespace {

using Json = nlohmann::ordered_json;

Json LineWithout(const PlannedDrawing& drawing) {
  Json json = {{"number", drawing.number},
               {"path", drawing.path},
               {"status", leftStatus},
               {"message", "the drawing has no result yet"},
               {"outputs", Json::array()}};
  if (drawing.size >= 0) json["size"] = drawing.size;
  if (!drawing.sha256.empty()) json["sha256"] = drawing.sha256;
  return json;
}

}  // namespace

void WalkResults(const Plan& plan, const std::function<void(const DrawingLine&)>& take) {
  const std::string key = plan.Key();
  std::map<int64_t, std::vector<ResultFileName>> files;
  for (ResultFileName& file : ResultFiles(plan.Folder())) files[file.chunk].push_back(std::move(file));
  for (const PlannedChunk& chunk : plan.Chunks()) {
    const std::map<int64_t, EarlierResult> results = ReadEarlierResults(files[chunk.number], key);
    for (const PlannedDrawing& drawing : plan.DrawingsOf(chunk)) {
      const auto found = results.find(drawing.number);
      Json json = found == results.end() ? LineWithout(drawing) : Json::parse(found->second.line);
      // The path in JSON is a text: other bytes are replaced in it.
      if (!IsUtf8(drawing.path)) json["pathBytes"] = HexDigits(drawing.path);
      take({drawing, json});
    }
  }
}

}  // namespace hexlume::batch
