// Runs the drawing tests below a folder, each as a test of its own: hexlume_drawing_tests FOLDER
// [GoogleTest's options]
#include <gtest/gtest.h>

#include <cstdio>
#include <sstream>

#include "support/conversion.h"
#include "support/drawing_case.h"

namespace hexlume {

namespace {

constexpr size_t shownLines = 5;  // around the first difference

std::vector<std::string> SplitLines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

std::string Excerpt(const std::vector<std::string>& lines, size_t middle) {
  std::ostringstream excerpt;
  const size_t first = middle > shownLines ? middle - shownLines : 0;
  for (size_t i = first; i < lines.size() && i <= middle + shownLines; ++i)
    excerpt << (i == middle ? "  => " : "     ") << i + 1 << ": " << lines[i] << '\n';
  return excerpt.str();
}

void ExpectSameLines(const std::vector<std::string>& expected, const std::vector<std::string>& drawn) {
  size_t line = 0;
  while (line < expected.size() && line < drawn.size() && expected[line] == drawn[line]) ++line;
  if (line == expected.size() && line == drawn.size()) return;
  ADD_FAILURE() << "expected " << expected.size() << " lines, drawn " << drawn.size()
                << ", different from line " << line + 1 << " on\nexpected:\n"
                << Excerpt(expected, line) << "drawn:\n"
                << Excerpt(drawn, line);
}

class DrawingTest : public testing::Test {
 public:
  explicit DrawingTest(DrawingCase drawingCase) : drawingCase(std::move(drawingCase)) {}

 private:
  void TestBody() override {
    // The plain exports draw as the last twin was asked to: this call fails, but sets the switch.
    vzDXFRotMetaMake(nullptr, 0);
    for (const ExpectedConversion& conversion : drawingCase.conversions) {
      SCOPED_TRACE(conversion.function);
      const ConversionResult result = Convert(drawingCase.drawing.string(), conversion);
      EXPECT_EQ(conversion.code, result.code);
      ExpectSameLines(conversion.listing, SplitLines(result.listing));
    }
  }

  DrawingCase drawingCase;
};

void RegisterCases(const std::filesystem::path& folder) {
  for (const DrawingCase& drawingCase : FindDrawingCases(folder))
    testing::RegisterTest(drawingCase.room.c_str(), drawingCase.name.c_str(), nullptr, nullptr, __FILE__,
                          __LINE__, [drawingCase]() -> DrawingTest* { return new DrawingTest(drawingCase); });
}

}  // namespace

}  // namespace hexlume

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (argc != 2) {
    std::fprintf(stderr, "usage: hexlume_drawing_tests FOLDER\n");
    return 64;
  }
  try {
    hexlume::RegisterCases(argv[1]);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
  return RUN_ALL_TESTS();
}
