// The lines of reports against the schema in the documents.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <regex>
#include <string>

#include "host/host_drawings.h"
#include "support/endless_drawing.h"
#include "support/tool_run.h"

namespace hexlume::report_schema_test {
namespace {

using Json = nlohmann::json;
namespace fs = std::filesystem;

// Tests are started in the repository, and each goes to a folder of its own then.
const fs::path repository = fs::current_path();

Json Schema() {
  std::ifstream file(repository / "docs/report.schema.json");
  return Json::parse(file);
}

bool HasType(const Json& value, const std::string& type) {
  if (type == "object") return value.is_object();
  if (type == "array") return value.is_array();
  if (type == "string") return value.is_string();
  if (type == "boolean") return value.is_boolean();
  if (type == "integer") return value.is_number_integer();
  if (type == "number") return value.is_number();
  return type == "null" && value.is_null();
}

bool HasOneOf(const Json& value, const Json& types) {
  if (types.is_string()) return HasType(value, types);
  return std::any_of(types.begin(), types.end(), [&](const Json& type) { return HasType(value, type); });
}

// What the value has that the schema doesn't allow, or lacks; empty if it is valid. Only what our schema uses of the
// language is known: other words of it are faults.
std::string Fault(const Json& value, const Json& schema, const std::string& place);

std::string FaultOfProperties(const Json& value, const Json& schema, const std::string& place) {
  for (const auto& [name, part] : value.items()) {
    if (!schema.contains(name)) return place + " has an unknown property " + name;
    if (std::string fault = Fault(part, schema[name], place + '.' + name); !fault.empty()) return fault;
  }
  return "";
}

std::string FaultOfWord(const std::string& word, const Json& rule, const Json& value, const Json& schema,
                        const std::string& place) {
  if (word == "$schema" || word == "title") return "";
  if (word == "type") return HasOneOf(value, rule) ? "" : place + " has another type: " + value.dump();
  if (word == "enum")
    return std::count(rule.begin(), rule.end(), value) > 0 ? "" : place + " can't be " + value.dump();
  if (word == "minimum") return value >= rule ? "" : place + " is too small";
  if (word == "pattern")
    return std::regex_search(value.get<std::string>(), std::regex(rule.get<std::string>()))
               ? ""
               : place + " has another form";
  if (word == "required") {
    for (const Json& name : rule)
      if (!value.contains(name)) return place + " lacks " + name.dump();
    return "";
  }
  if (word == "additionalProperties")
    return rule == false && schema.contains("properties") ? "" : "unknown rule";
  if (word == "properties") return FaultOfProperties(value, rule, place);
  if (word == "items") {
    for (const Json& item : value)
      if (std::string fault = Fault(item, rule, place + "[]"); !fault.empty()) return fault;
    return "";
  }
  return "unknown rule " + word;
}

std::string Fault(const Json& value, const Json& schema, const std::string& place) {
  // The other rules rely on the type.
  if (schema.contains("type") && !HasOneOf(value, schema["type"]))
    return place + " has another type: " + value.dump();
  for (const auto& [word, rule] : schema.items())
    if (std::string fault = FaultOfWord(word, rule, value, schema, place); !fault.empty()) return fault;
  return "";
}

class ReportSchema : public ToolRun {
 protected:
  // Expects valid lines in report.jsonl and returns how many there are.
  static size_t ValidLines() {
    const Json schema = Schema();
    size_t count = 0;
    std::ifstream report("report.jsonl");
    for (std::string line; std::getline(report, line); ++count)
      EXPECT_EQ("", Fault(Json::parse(line), schema, "line"));
    return count;
  }
};

TEST_F(ReportSchema, the_schema_itself_finds_faults) {
  const Json sound = {{"path", "a"},        {"status", "ok"},           {"message", ""},
                      {"unchanged", false}, {"outputs", Json::array()}, {"remarks", Json::array()}};
  EXPECT_EQ("", Fault(sound, Schema(), "line"));
  const auto isFaulty = [&](const char* name, const Json& value) {
    Json changed = sound;
    changed[name] = value;
    return !Fault(changed, Schema(), "line").empty();
  };
  EXPECT_TRUE(isFaulty("status", "fine"));
  EXPECT_TRUE(isFaulty("unchanged", 1));
  EXPECT_TRUE(isFaulty("size", -1));
  EXPECT_TRUE(isFaulty("sha256", "xyz"));
  EXPECT_TRUE(isFaulty("new", 1));
  EXPECT_TRUE(isFaulty("outputs", Json::array({{{"path", "a"}}})));
  Json lacking = sound;
  lacking.erase("path");
  EXPECT_FALSE(Fault(lacking, Schema(), "line").empty());
}

TEST_F(ReportSchema, lines_of_drawings_and_of_unchanged_ones_are_valid) {
  fs::create_directory("out");
  size_t examples = 0;
  for (const auto& entry : fs::directory_iterator(repository / "examples"))
    if (entry.path().extension() == ".dxf") {
      fs::copy_file(entry.path(), entry.path().filename());
      ++examples;
    }
  ASSERT_LT(5u, examples);
  for (int run = 0; run < 2; ++run) {
    ExpectSuccess(RunReal("-d out --skip-unchanged --report report.jsonl *.dxf"));
    EXPECT_EQ(examples, ValidLines());
  }
}

TEST_F(ReportSchema, lines_of_failures_and_of_remarks_are_valid) {
  fs::create_directory("out");
  Write("empty.dxf", "");
  Write("dwg.dxf", "AC1015");
  Write("none.dxf", "no drawing");
  Write("endless.dxf", EndlessDrawing());
  Write("cut.dxf", A3(Line()).substr(0, A3(Line()).size() - 10));
  Write(
      "recent.dxf",
      DrawingBytes("0 SECTION\n2 HEADER\n9 $ACADVER\n1 AC1032\n9 $LIMMIN\n10 0\n20 0\n9 $LIMMAX\n10 9\n20 9\n"
                   "0 ENDSEC\n0 SECTION\n2 ENTITIES\n0 TEXT\n8 0\n10 1\n20 1\n40 1\n1 \U0001F600\n" +
                   end));
  const Outcome outcome = RunReal(
      "-d out --jobs 2 --time-limit 1 --memory-limit 20G --report report.jsonl nowhere.dxf . "
      "empty.dxf dwg.dxf none.dxf endless.dxf cut.dxf recent.dxf --hide-layer Z");
  EXPECT_NE(0, outcome.status);
  EXPECT_EQ(8u, ValidLines());
}

}  // namespace
}  // namespace hexlume::report_schema_test
