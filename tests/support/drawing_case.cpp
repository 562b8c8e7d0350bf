#include "support/drawing_case.h"

#include <algorithm>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace hexlume {

namespace {

// "view=0,0,1000,1000"
void ParseArgument(const std::string& word, ExpectedConversion& conversion) {
  const size_t equals = word.find('=');
  if (equals == std::string::npos) throw std::runtime_error("not an argument: " + word);
  std::vector<int32_t>& values = conversion.arguments[word.substr(0, equals)];
  std::istringstream list(word.substr(equals + 1));
  for (std::string number; std::getline(list, number, ',');) values.push_back(std::stoi(number));
}

ExpectedConversion ParseCall(const std::string& call) {
  ExpectedConversion conversion;
  std::istringstream words(call);
  words >> conversion.function;
  for (std::string word; words >> word;) ParseArgument(word, conversion);
  return conversion;
}

void ParseLine(const std::string& line, std::vector<ExpectedConversion>& conversions) {
  if (line.empty() || line[0] == '#') return;
  if (line[0] == '>') {
    conversions.push_back(ParseCall(line.substr(1)));
    return;
  }
  if (conversions.empty()) conversions.emplace_back();
  if (line[0] == '=')
    conversions.back().code = std::stoi(line.substr(1));
  else
    conversions.back().listing.push_back(line);
}

DrawingCase ReadCase(const std::filesystem::path& text) {
  DrawingCase drawingCase;
  drawingCase.drawing = text;
  drawingCase.drawing.replace_extension(".dxf");
  drawingCase.room = text.parent_path().filename().string();
  drawingCase.name = text.stem().string();
  if (!std::filesystem::exists(drawingCase.drawing)) throw std::runtime_error("has no drawing");
  std::ifstream lines(text);
  for (std::string line; std::getline(lines, line);) ParseLine(line, drawingCase.conversions);
  if (drawingCase.conversions.empty()) throw std::runtime_error("expects nothing");
  return drawingCase;
}

}  // namespace

std::vector<DrawingCase> FindDrawingCases(const std::filesystem::path& folder) {
  std::vector<std::filesystem::path> texts;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
    if (entry.path().extension() == ".txt") texts.push_back(entry.path());
  std::sort(texts.begin(), texts.end());

  std::vector<DrawingCase> cases;
  for (const auto& text : texts) {
    try {
      cases.push_back(ReadCase(text));
    } catch (const std::exception& error) {
      throw std::runtime_error(text.string() + ": " + error.what());
    }
  }
  return cases;
}

}  // namespace hexlume
