#include "tools/batch/results/report.h"

#include <ostream>

#include "tools/batch/base/text.h"
#include "tools/batch/plan/folder.h"
#include "tools/batch/results/result_walk.h"
#include "tools/hexlume/system/path_text.h"

namespace hexlume::batch {
namespace {

using Json = nlohmann::ordered_json;

// Those without a result haven't failed.
bool HasFailed(const Json& result) {
  const std::string status = result.at("status");
  return status != "ok" && status != leftStatus;
}

// The path as its bytes are, in the folder of the batch. Outputs are written in the order of their kinds; a failure leaves
// the last ones out.
std::string OutputOf(const DrawingLine& line, const std::vector<std::string>& kinds, size_t index) {
  if (index >= line.result.at("outputs").size()) return "";
  return Joined(outputsName, line.drawing.place) + '.' + kinds[index];
}

std::string NumberOf(const Json& result, const char* name) {
  const auto found = result.find(name);
  return found == result.end() ? "" : found->dump();
}

}  // namespace

void WriteCsv(const Plan& plan, bool isFailedOnly, std::ostream& out) {
  const std::vector<std::string> kinds = plan.Kinds();
  out << "path,status,message,size,sha256";
  for (const std::string& kind : kinds) out << ',' << kind;
  out << ",host\n";
  WalkResults(plan, [&](const DrawingLine& line) {
    const Json& result = line.result;
    if (isFailedOnly && !HasFailed(result)) return;
    out << CsvField(line.drawing.path) << ',' << result.at("status").get<std::string>() << ','
        << CsvField(result.at("message")) << ',' << NumberOf(result, "size") << ','
        << result.value("sha256", "");
    for (size_t i = 0; i < kinds.size(); ++i) out << ',' << CsvField(OutputOf(line, kinds, i));
    out << ',' << CsvField(result.value("host", "")) << '\n';
  });
}

void WriteJsonLines(const Plan& plan, bool isFailedOnly, std::ostream& out) {
  WalkResults(plan, [&](const DrawingLine& line) {
    if (isFailedOnly && !HasFailed(line.result)) return;
    out << line.result.dump(-1, ' ', false, Json::error_handler_t::replace) << '\n';
  });
}

}  // namespace hexlume::batch
