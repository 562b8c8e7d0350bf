#include "tools/batch/results/earlier_results.h"

#include <nlohmann/json.hpp>

#include "tools/batch/results/result_file.h"
#include "tools/hexlume/system/system.h"

namespace hexlume::batch {
namespace {

using Json = nlohmann::ordered_json;

// Throws what the JSON library throws.
void TakeLine(const std::string& line, std::map<int64_t, EarlierResult>& results) {
  const Json json = Json::parse(line);
  EarlierResult result = {line, json.at("status"), json.value("sha256", ""), {}};
  for (const Json& output : json.at("outputs")) result.outputSizes.push_back(output.at("size"));
  results[json.at("number")] = std::move(result);
}

}  // namespace

std::map<int64_t, EarlierResult> ReadEarlierResults(const std::vector<ResultFileName>& files,
                                                    const std::string& key) {
  std::map<int64_t, EarlierResult> results;
  for (const ResultFileName& file : files) {
    const auto head = ReadHead(file.path);
    if (!head || head->key != key) continue;
    ReadResultLines(file.path, [&results](const std::string& line) {
      try {
        TakeLine(line, results);
      } catch (const Json::exception&) {
        // A line that a machine has left in its middle.
      }
    });
  }
  return results;
}

bool HasOutputs(const EarlierResult& result, const Job& job) {
  if (result.outputSizes.size() > job.outputs.size()) return false;
  for (size_t i = 0; i < result.outputSizes.size(); ++i) {
    const auto stamp = StampOf(job.outputs[i].file);
    if (!stamp || stamp->kind != FileKind::file || stamp->size != result.outputSizes[i]) return false;
  }
  return true;
}

}  // namespace hexlume::batch
