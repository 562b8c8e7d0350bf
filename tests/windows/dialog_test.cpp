#include "windows/dialog_test.h"

#include <sstream>

#include "support/metafile_canvas.h"

namespace hexlume {

namespace {

std::string Header(int32_t width, int32_t height) {
  const std::string size = "10 " + std::to_string(width) + "\n20 " + std::to_string(height) + '\n';
  return "0 SECTION\n2 HEADER\n9 $LIMMIN\n10 0\n20 0\n9 $LIMMAX\n" + size +
         "9 $EXTMIN\n10 0\n20 0\n9 $EXTMAX\n" + size + "0 ENDSEC\n";
}

std::string LayerRecord(const Layer& layer) {
  return std::string("0 LAYER\n2 ") + layer.name + "\n70 " + std::to_string(layer.flags) + "\n62 " +
         std::to_string(layer.color) + '\n';
}

std::string Tables(const std::string& lineTypes, const std::string& layers) {
  return "0 SECTION\n2 TABLES\n" + lineTypes + "0 TABLE\n2 LAYER\n" + layers + "0 ENDTAB\n0 ENDSEC\n";
}

std::string Line(const std::string& layer, const std::string& lineType, size_t number) {
  const std::string y = std::to_string(10 + 10 * number);
  return "0 LINE\n8 " + layer + "\n6 " + lineType + "\n10 10\n20 " + y + "\n11 110\n21 " + y + '\n';
}

std::string Entities(const std::string& lines) {
  return "0 SECTION\n2 ENTITIES\n" + lines + "0 ENDSEC\n0 EOF\n";
}

std::string LineTypeRecord(const std::string& name, const std::string& elements) {
  return "0 LTYPE\n2 " + name + "\n70 0\n3 x\n72 65\n" + elements;
}

// The numbers of lines in the order of drawing, by the Y of their beginnings.
template <typename NumberAt>
Numbers NumbersOf(const std::string& listing, NumberAt numberAt) {
  Numbers numbers;
  std::istringstream lines(listing);
  for (std::string line; std::getline(lines, line);) {
    int x = 0, y = 0;
    if (std::sscanf(line.c_str(), "MoveToEx(%d, %d)", &x, &y) != 2) continue;
    const int32_t number = numberAt(y);
    if (numbers.empty() || numbers.back() != number) numbers.push_back(number);
  }
  return numbers;
}

}  // namespace

std::string LayersDrawing(const std::vector<Layer>& layers) {
  std::vector<std::string> names;
  for (const Layer& layer : layers) names.push_back(layer.name);
  return LayersDrawing(layers, names);
}

std::string LayersDrawing(const std::vector<Layer>& layers, const std::vector<std::string>& lineLayers) {
  std::string records, lines;
  for (const Layer& layer : layers) records += LayerRecord(layer);
  for (size_t i = 0; i < lineLayers.size(); ++i) lines += Line(lineLayers[i], "CONTINUOUS", i);
  return Header(300, 200) + Tables("", records) + Entities(lines);
}

std::string FamiliesDrawing() {
  const std::string lineTypes =
      "0 TABLE\n2 LTYPE\n" + LineTypeRecord("DASHED", "73 2\n40 3\n49 2\n49 -1\n") +
      LineTypeRecord("DOT", "73 2\n40 1\n49 0\n49 -1\n") +
      LineTypeRecord("DASHDOT", "73 4\n40 4\n49 2\n49 -1\n49 0\n49 -1\n") +
      LineTypeRecord("DASHDOTDOT", "73 6\n40 5\n49 2\n49 -1\n49 0\n49 -1\n49 0\n49 -1\n") + "0 ENDTAB\n";
  return Header(300, 200) + Tables(lineTypes, LayerRecord({"A", 7})) +
         Entities(Line("A", "CONTINUOUS", 0) + Line("A", "DASHED", 1) + Line("A", "DOT", 2) +
                  Line("A", "DASHDOT", 3) + Line("A", "DASHDOTDOT", 4));
}

std::string LargeDrawing(int32_t width, int32_t height) {
  return Header(width, height) + Tables("", LayerRecord({"A", 7})) + Entities(Line("A", "CONTINUOUS", 0));
}

Numbers Conversion::Lines() const {
  // 200 mm below the sheet's top is its lower edge, at -20000.
  return NumbersOf(listing, [](int y) { return (y + 20000) / 1000 - 1; });
}

Numbers Conversion::TurnedLines() const {
  // What was the lower edge is the upper one, at 0.
  return NumbersOf(listing, [](int y) { return -y / 1000 - 1; });
}

std::string Conversion::Frame() const {
  return listing.substr(0, listing.find('\n'));
}

Conversion DialogTest::Convert(const User& user, const std::function<int32_t(HENHMETAFILE*)>& call) {
  const auto untouched = reinterpret_cast<HENHMETAFILE>(&library);
  HENHMETAFILE out = untouched;
  Conversion conversion = {-1, false, ""};
  EXPECT_EQ("", RunWithUser([&] { conversion.code = call(&out); }, user));
  conversion.hasMetafile = out != untouched;
  if (conversion.hasMetafile) conversion.listing = ListAndDelete(out);
  return conversion;
}

Conversion DialogTest::Whole(const std::string& drawing, int32_t showDialogs, const User& user) {
  const char* path = Keep(drawing);
  return Convert(user, [&](HENHMETAFILE* out) { return library.metaMake(path, out, showDialogs, 0); });
}

Conversion DialogTest::Part(const std::string& drawing, int32_t showDialogs, const User& user,
                            const RECT& view) {
  const char* path = Keep(drawing);
  return Convert(user,
                 [&](HENHMETAFILE* out) { return library.reMetaMake(path, out, 0, view, 0, showDialogs); });
}

Conversion DialogTest::FullSize(const std::string& drawing, int32_t showDialogs, const User& user) {
  const char* path = Keep(drawing);
  return Convert(user,
                 [&](HENHMETAFILE* out) { return library.fullSizeMetaMake(path, out, showDialogs, 0); });
}

Conversion DialogTest::Turned() {
  return Convert([] {}, [&](HENHMETAFILE* out) { return library.rotMetaMake(out); });
}

}  // namespace hexlume
