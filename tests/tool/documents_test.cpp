// What the documents say of the tool, against its tables. The tests are started in the repository.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>
#include <string>

#include "tools/hexlume/command/option_table.h"
#include "tools/hexlume/drawing/status.h"

namespace hexlume::documents_test {
namespace {

std::string Document(const std::string& name) {
  std::ifstream file("docs/" + name);
  return {std::istreambuf_iterator<char>(file), {}};
}

bool Contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

// At the start of a row of a table, where it can have other options beside it.
TEST(CommandLineDocument, has_every_option) {
  const std::string document = Document("command-line.md");
  for (const OptionRow& option : OptionTable()) {
    const std::string form = WrittenForm(option);
    const std::string name = HyphenatedName(option);
    EXPECT_TRUE(Contains(document, '`' + form + '`') || Contains(document, "hexlume " + name + "` ") ||
                name == "--version")
        << form;
  }
}

TEST(CommandLineDocument, has_every_status) {
  const std::string document = Document("command-line.md");
  for (int row = 0; row < statusRowCount; ++row) {
    const Status& status = StatusOf(static_cast<StatusRow>(row));
    const std::string start = "\n| " + std::to_string(status.exit) + " | ";
    const size_t place = document.find(start);
    ASSERT_NE(std::string::npos, place) << status.name;
    const std::string line = document.substr(place + 1, document.find('\n', place + 1) - place);
    EXPECT_TRUE(Contains(line, std::string("`") + status.name + '`')) << status.name;
  }
}

TEST(ReportDocument, has_every_field_and_status_of_the_schema) {
  const auto schema = nlohmann::json::parse(Document("report.schema.json"));
  const std::string document = Document("report.md");
  for (const auto& [name, rule] : schema["properties"].items())
    EXPECT_TRUE(Contains(document, "\n| `" + name + "` | ")) << name;
  const auto& names = schema["properties"]["status"]["enum"];
  for (int row = 0; row < statusRowCount; ++row) {
    const std::string name = StatusOf(static_cast<StatusRow>(row)).name;
    EXPECT_EQ(row != usageStatus, std::count(names.begin(), names.end(), name) == 1) << name;
  }
}

}  // namespace
}  // namespace hexlume::documents_test
