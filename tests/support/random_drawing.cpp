#include "support/random_drawing.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>
#include <vector>

namespace hexlume {

namespace {

// The standard's distributions differ from library to library, its generator doesn't.
class Writer {
 public:
  explicit Writer(uint32_t seed) : random(seed) { lineEnd = Chance(50) ? "\r\n" : "\n"; }

  uint32_t Below(uint32_t end) { return random() % end; }
  bool Chance(uint32_t percent) { return Below(100) < percent; }

  void Group(int32_t code, const std::string& value) {
    char number[16];
    std::snprintf(number, sizeof number, Chance(80) ? "%3d" : "%d", code);
    text += number + lineEnd + value + lineEnd;
  }

  template <size_t count>
  const char* OneOf(const char* const (&choices)[count]) {
    return choices[Below(count)];
  }

  std::string Number(double smallest, double largest) {
    const double value = smallest + (largest - smallest) * (random() / 4294967295.0);
    char number[64];
    switch (Below(8)) {
      case 0: std::snprintf(number, sizeof number, "%.0f", value); break;
      case 1: std::snprintf(number, sizeof number, "%.1f", value); break;
      case 2: std::snprintf(number, sizeof number, "%.15E", value); break;
      default: std::snprintf(number, sizeof number, "%.6f", value); break;
    }
    return number;
  }

  // Now and then a number that no drawing should have.
  std::string Coordinate() {
    static const char* const absurd[] = {"1E+300", "-1E+300",    "NAN",           "INF",
                                         "",       "1d2",        "0x10",          "1e",
                                         "1E+999", "2147483647", "-2147483648.5", "  12.5"};
    return Chance(2) ? OneOf(absurd) : Number(-50.0, 470.0);
  }

  std::string text;
  bool tellsSize = false;  // in its header
  bool isOdd = false;      // see OddDrawing

 private:
  std::mt19937 random;
  std::string lineEnd;
};

const char* const layerNames[] = {"0", "A", "B", "\x8A\x4F\x8C\x60\x90\xFC", "\x92\x86\x90\x53\x90\xFC",
                                  "c", "A "};
const char* const ltypeNames[] = {
    "CONTINUOUS", "Continuous", "CONTINUOS",      "DOT",     "DASHED",  "DASHED2",    "HIDDEN",
    "hidden",     "DASHDOT",    "CENTER",         "CENTER2", "BORDER2", "DASHDOTDOT", "DIVIDE",
    "PHANTOM",    "PHANTOM2",   "MY_DASHED_LINE", "BYLAYER", "BYBLOCK", "ByBlock",    "HIDDEN2"};
const char* const blockNames[] = {"BOLT", "NUT", "*D1", "bolt", "\x83\x7B\x83\x8B\x83\x67", "_TIP"};
const char* const dimStyleNames[] = {"STANDARD", "ISO-25", "\x90\xA1\x96\x40"};
const char* const otherEntities[] = {"VIEWPORT", "3DFACE", "WIPEOUT", "line", "LINE ", "IMAGE"};

void WritePoint(Writer& writer, int32_t code, const std::string& x, const std::string& y) {
  if (!writer.Chance(3)) writer.Group(code, x);
  if (!writer.Chance(3)) writer.Group(code + 10, y);
  if (writer.Chance(70)) writer.Group(code + 20, "0.0");
}

void WriteHeader(Writer& writer) {
  writer.Group(0, "SECTION");
  writer.Group(2, "HEADER");
  const auto variable = [&](const char* name, double smallest, double largest) {
    writer.Group(9, name);
    WritePoint(writer, 10, writer.Number(smallest, largest), writer.Number(smallest, largest));
  };
  if (writer.Chance(70)) {
    writer.tellsSize = true;
    variable("$EXTMIN", -20.0, 10.0);
    variable("$EXTMAX", 200.0, 500.0);
  }
  if (writer.Chance(80)) {
    writer.tellsSize = true;
    variable("$LIMMIN", 0.0, 1.0);
    variable("$LIMMAX", writer.Chance(20) ? 2000.0 : 300.0, writer.Chance(20) ? 4000.0 : 600.0);
  }
  if (writer.Chance(30)) {
    writer.Group(9, "$LTSCALE");
    writer.Group(40, writer.Number(0.0, 20.0));
  }
  if (writer.Chance(30)) {
    writer.Group(9, "$DIMSCALE");
    writer.Group(40, writer.Number(writer.Chance(10) ? -2.0 : 0.5, 3.0));
  }
  if (writer.Chance(50)) {
    writer.Group(9, "$PDMODE");
    writer.Group(70, std::to_string(32 * writer.Below(4) + writer.Below(6)));
  }
  if (writer.Chance(30)) {
    writer.Group(9, "$PDSIZE");
    writer.Group(40, writer.Number(-5.0, 5.0));
  }
  writer.Group(0, "ENDSEC");
}

// Now and then a pattern that is a dot, has a gap first, has elements too many or none, or is absurd.
void WriteLtypes(Writer& writer) {
  writer.Group(0, "TABLE");
  writer.Group(2, "LTYPE");
  for (uint32_t count = writer.Below(16); count > 0; --count) {
    writer.Group(0, "LTYPE");
    writer.Group(2, writer.OneOf(ltypeNames));
    const uint32_t elements = 2 * (1 + writer.Below(3)) + (writer.Chance(10) ? 1 : 0);
    writer.Group(73, std::to_string(elements));
    const uint32_t written = writer.Chance(90) ? elements : writer.Below(10);
    for (uint32_t i = 0; i < written; ++i) {
      const bool gap = (i % 2 == 1) != writer.Chance(3);
      if (writer.Chance(2)) {
        writer.Group(49, writer.Coordinate());
      } else if (!gap && writer.Chance(15)) {
        writer.Group(49, writer.Number(0.0, writer.Chance(50) ? 0.0 : 0.02));
      } else {
        writer.Group(49, gap ? writer.Number(-9.0, -0.005) : writer.Number(0.1, 12.0));
      }
    }
  }
  writer.Group(0, "ENDTAB");
}

void WriteLayers(Writer& writer) {
  writer.Group(0, "TABLE");
  writer.Group(2, "LAYER");
  for (uint32_t count = writer.Below(6); count > 0; --count) {
    writer.Group(0, "LAYER");
    writer.Group(2, writer.OneOf(layerNames));
    if (writer.Chance(80)) writer.Group(70, std::to_string(writer.Below(6)));
    if (writer.Chance(90)) writer.Group(62, std::to_string(static_cast<int32_t>(writer.Below(300)) - 20));
    writer.Group(6, writer.OneOf(ltypeNames));
    if (writer.Chance(20)) writer.Group(290, std::to_string(writer.Below(2)));
    if (writer.Chance(20)) writer.Group(370, std::to_string(static_cast<int32_t>(writer.Below(900)) - 3));
  }
  writer.Group(0, "ENDTAB");
}

// A style may have its arrow by name, by the handle of some blocks' owner, or not at all.
void WriteDimStyles(Writer& writer) {
  writer.Group(0, "TABLE");
  writer.Group(2, "DIMSTYLE");
  for (uint32_t count = writer.Below(4); count > 0; --count) {
    writer.Group(0, "DIMSTYLE");
    writer.Group(2, writer.OneOf(dimStyleNames));
    if (writer.Chance(80)) writer.Group(40, writer.Number(0.2, 2.0));
    if (writer.Chance(90)) writer.Group(41, writer.Number(0.0, 3.0));
    if (writer.Chance(30)) writer.Group(6, writer.Chance(80) ? "TIP" : "GONE");
    if (writer.Chance(30)) writer.Group(341, "1F");
  }
  writer.Group(0, "ENDTAB");
}

void WriteTables(Writer& writer) {
  writer.Group(0, "SECTION");
  writer.Group(2, "TABLES");
  if (!writer.Chance(20)) WriteLtypes(writer);
  if (!writer.Chance(3)) WriteLayers(writer);
  if (writer.Chance(writer.isOdd ? 20 : 3)) WriteLtypes(writer);
  if (writer.isOdd && writer.Chance(20)) WriteLayers(writer);
  if (writer.Chance(80)) WriteDimStyles(writer);
  if (writer.isOdd && writer.Chance(20)) WriteDimStyles(writer);
  writer.Group(0, "ENDSEC");
}

// Among them types that no table defines.
const char* OddLtype(Writer& writer) {
  static const char* const undefined[] = {"NOWHERE",          "",  "DASHED_NOT", "center2x",
                                          "\x94\x6A\x90\xFC", "*", "BY LAYER"};
  return writer.Chance(30) ? writer.OneOf(undefined) : writer.OneOf(ltypeNames);
}

void WriteProperties(Writer& writer) {
  if (writer.Chance(80)) writer.Group(8, writer.OneOf(layerNames));
  if (writer.Chance(30)) writer.Group(6, writer.isOdd ? OddLtype(writer) : writer.OneOf(ltypeNames));
  if (writer.Chance(50)) writer.Group(62, std::to_string(static_cast<int32_t>(writer.Below(270)) - 5));
  if (writer.Chance(20)) writer.Group(39, std::to_string(writer.Below(8000)));
}

void WriteLine(Writer& writer) {
  const std::string x = writer.Coordinate();
  const std::string y = writer.Coordinate();
  WritePoint(writer, 10, x, y);
  // Level, upright and slanted lines take different ways.
  WritePoint(writer, 11, writer.Chance(15) ? x : writer.Coordinate(),
             writer.Chance(15) ? y : writer.Coordinate());
}

void WriteRound(Writer& writer) {
  WritePoint(writer, 10, writer.Coordinate(), writer.Coordinate());
  if (!writer.Chance(3)) writer.Group(40, writer.Chance(3) ? writer.Coordinate() : writer.Number(0.0, 120.0));
}

void WriteArc(Writer& writer) {
  WriteRound(writer);
  for (const int32_t code : {50, 51})
    if (!writer.Chance(3)) writer.Group(code, writer.Number(-10.0, 370.0));
}

// A part of an ellipse that crosses an edge of the sheet, or only just doesn't.
void WriteEllipseAtEdge(Writer& writer) {
  static const char* const edges[] = {"0", "420", "297", "0.01", "419.99", "10", "150"};
  static const char* const axes[] = {"30", "-30", "0", "10.005", "0.01", "90"};
  static const char* const ratios[] = {"0.5", "1", "0.0001", "1.5", "-0.5", "0"};
  WritePoint(writer, 10, writer.OneOf(edges), writer.OneOf(edges));
  WritePoint(writer, 11, writer.OneOf(axes), writer.OneOf(axes));
  writer.Group(40, writer.OneOf(ratios));
  writer.Group(41, writer.Number(-1.0, 7.0));
  writer.Group(42, writer.Number(-1.0, 13.0));
}

void WriteEllipse(Writer& writer) {
  if (writer.isOdd && writer.Chance(40)) return WriteEllipseAtEdge(writer);
  WritePoint(writer, 10, writer.Coordinate(), writer.Coordinate());
  const bool upright = writer.Chance(30);
  WritePoint(writer, 11, upright ? "0.0" : writer.Number(-90.0, 90.0),
             upright || writer.Chance(30) ? writer.Number(-90.0, 90.0) : "0.0");
  if (!writer.Chance(3)) writer.Group(40, writer.Number(0.01, 1.0));
  const bool whole = writer.Chance(50);
  writer.Group(41, whole ? "0.0" : writer.Number(0.0, 6.3));
  writer.Group(42, whole ? "6.283185307179586" : writer.Number(0.0, 6.3));
}

void WritePlace(Writer& writer) {
  WritePoint(writer, 10, writer.Coordinate(), writer.Coordinate());
}

void WriteBulge(Writer& writer) {
  static const char* const oddBulges[] = {"1",   "-1",   "1E-9", "-1E-7", "0.0005",
                                          "1E6", "-1E9", "57.3", "-0",    "2.4142135"};
  if (!writer.Chance(40)) return;
  if (writer.isOdd && writer.Chance(25)) return writer.Group(42, writer.OneOf(oddBulges));
  const std::string bulge = writer.Chance(10) ? "0.0" : writer.Number(-1.5, 1.5);
  writer.Group(42, writer.Chance(5) ? writer.Coordinate() : bulge);
}

void WritePolyline(Writer& writer) {
  if (writer.Chance(80)) writer.Group(66, "1");
  WritePoint(writer, 10, "0.0", "0.0");
  if (writer.Chance(70)) writer.Group(70, std::to_string(writer.Below(writer.Chance(80) ? 2 : 256)));
  for (uint32_t count = writer.Below(9); count > 0; --count) {
    writer.Group(0, writer.Chance(98) ? "VERTEX" : "POINT");
    if (writer.Chance(80)) writer.Group(8, writer.OneOf(layerNames));
    WritePlace(writer);
    WriteBulge(writer);
    if (writer.Chance(20)) writer.Group(70, std::to_string(writer.Below(256)));
  }
  if (writer.Chance(95)) writer.Group(0, "SEQEND");
}

void WriteLwPolyline(Writer& writer) {
  const uint32_t count = writer.Below(9);
  writer.Group(90, std::to_string(writer.Chance(95) ? count : writer.Below(20)));
  if (writer.Chance(80)) writer.Group(70, std::to_string(writer.Below(writer.Chance(80) ? 2 : 256)));
  if (writer.Chance(20)) writer.Group(43, writer.Number(0.0, 5.0));
  for (uint32_t i = 0; i < count; ++i) {
    if (!writer.Chance(3)) writer.Group(10, writer.Coordinate());
    if (!writer.Chance(3)) writer.Group(20, writer.Coordinate());
    for (const int32_t code : {40, 41})
      if (writer.Chance(10)) writer.Group(code, writer.Number(0.0, 5.0));
    WriteBulge(writer);
  }
}

// Mostly with a knot at each end that is repeated four times, one for each control point beyond the fourth
// between them, and counts that are true.
void WriteSpline(Writer& writer) {
  const uint32_t controlCount = writer.Chance(85) ? 4 + writer.Below(5) : writer.Below(4);
  const uint32_t fitCount = writer.Chance(30) ? writer.Below(7) : 0;
  const uint32_t knotCount = controlCount + (writer.Chance(95) ? 4 : writer.Below(6));
  const bool clamped = writer.Chance(85);
  writer.Group(70, std::to_string(writer.Below(32)));
  writer.Group(71, std::to_string(writer.Chance(90) ? 3 : writer.Below(6)));
  writer.Group(72, std::to_string(knotCount));
  writer.Group(73, std::to_string(writer.Chance(95) ? controlCount : writer.Below(12)));
  if (!writer.Chance(5)) writer.Group(74, std::to_string(writer.Chance(95) ? fitCount : writer.Below(9)));
  for (uint32_t i = 0; i < knotCount; ++i) {
    const uint32_t inner = i < 4 ? 0 : i < controlCount ? i - 3 : controlCount > 3 ? controlCount - 3 : 0;
    if (writer.Chance(1))
      writer.Group(40, writer.Coordinate());
    else
      writer.Group(40, clamped ? std::to_string(inner) : writer.Number(0.0, 8.0));
  }
  for (uint32_t i = 0; i < controlCount; ++i) WritePlace(writer);
  for (uint32_t i = 0; i < fitCount; ++i) WritePoint(writer, 11, writer.Coordinate(), writer.Coordinate());
}

// One of four corners outside the view drops it, so most of them stay well within the sheet.
void WriteSolid(Writer& writer) {
  const bool within = writer.Chance(80);
  for (const int32_t code : {10, 11, 12, 13}) {
    const std::string x = within ? writer.Number(5.0, 190.0) : writer.Coordinate();
    const std::string y = within ? writer.Number(5.0, 190.0) : writer.Coordinate();
    if (code < 13 || writer.Chance(95)) WritePoint(writer, code, x, y);
  }
}

void WritePlayedBlock(Writer& writer, const char* block) {
  writer.Group(2, block);
  WritePlace(writer);
  static const char* const oddScales[] = {"-1", "-2.5", "0", "1E-7", "-0.01", "100", "1000"};
  for (const int32_t code : {41, 42}) {
    if (!writer.Chance(50)) continue;
    writer.Group(code,
                 writer.isOdd && writer.Chance(40) ? writer.OneOf(oddScales) : writer.Number(-0.5, 3.0));
  }
  if (writer.Chance(50)) writer.Group(50, writer.Number(-10.0, 370.0));
  if (writer.Chance(10)) writer.Group(230, "-1.0");
}

void WriteInsert(Writer& writer) {
  WritePlayedBlock(writer, writer.OneOf(blockNames));
}

// A few of its groups alone count; what is drawn is its block.
void WriteDimension(Writer& writer) {
  if (!writer.Chance(3)) writer.Group(2, writer.OneOf(blockNames));
  WritePlace(writer);
  if (writer.Chance(60)) WritePoint(writer, 11, writer.Coordinate(), writer.Coordinate());
  if (writer.Chance(60)) WritePoint(writer, 12, writer.Number(-20.0, 60.0), writer.Number(-20.0, 60.0));
  for (const int32_t code : {13, 14, 15})
    if (writer.Chance(50)) WritePoint(writer, code, writer.Coordinate(), writer.Coordinate());
  if (writer.Chance(20)) writer.Group(1, "<> mm");
  if (writer.Chance(30)) writer.Group(3, "STANDARD");
  if (writer.Chance(30)) writer.Group(50, writer.Number(0.0, 360.0));
  if (writer.Chance(80)) writer.Group(70, std::to_string(writer.Below(200)));
}

// A hatch as arrows have it. It is read without regard to where it ends, and would lead into other blocks if
// it missed a group, so it never does.
void WriteArrowhead(Writer& writer) {
  const uint32_t corners = 3 + writer.Below(2);
  writer.Group(2, writer.Chance(90) ? "SOLID" : "ANSI31");
  writer.Group(91, "1");
  writer.Group(92, "1");
  writer.Group(93, std::to_string(corners));
  for (uint32_t i = 0; i < corners; ++i) {
    writer.Group(72, "1");
    for (const int32_t code : {10, 20, 11, 21}) writer.Group(code, writer.Number(-5.0, 5.0));
  }
  writer.Group(75, "1");
}

// Texts are written so that no listing depends on the metrics of a font, which differ from system to system.
// A TEXT of Latin characters goes down by its font's descent: each has others. MTEXT takes the width of its
// cells from the font, times the factor of the code "\W", which is 0 here. A fraction measures a font too,
// and in a block the code "\T" can cut "\W" off: no piece has an S, W or T, as it may come to be after a
// backslash, which any trail byte can be. The text is before the height, so that an entity that the
// drawing's end cuts off within its text isn't drawn. And nobody asks for texts that are in the view as a
// whole.
const char* const textCodes[] = {
    "%%d",    "%%D",    "%%c",           "%%C",      "%%p",      "%%P",      "%%u",     "%%o",
    "%%",     "%",      "\\P",           "\\A1;",    "\\L",      "\\C3;",    "\\H2.5;", "\\H0.7x;",
    "\\Q15;", "\\",     "\\U+2205",      "\\U+00B0", "\\U+25CF", "\\U+3042", "\\U+",    "{",
    "}",      "{\\C1;", "{\\fArial|b0;", "^",        ";",        "|"};
const char* const textCharacters[] = {" ",        "(",        ")",        "12.5",     "-7,3",     "A1",
                                      "mm",       "\xB1",     "\xB6\xDE", "\xCA\xDF", "\x83\x5C", "\x95\x5C",
                                      "\x94\x5C", "\x90\x7D", "\x81\x40", "\x81\x69", "\x81\x6A", "\x90"};
const char kanji[] = "\x81\x9B\x81\x9B\x81\x9B";        // more bytes than a code or two can take along
const char barredBytes[] = "\n\r\x1A\x53\x57\x54\x66";  // ends of lines and files; S, W, T, and f of a face
// Those that depend on metrics, for odd drawings.
const char* const measuredCodes[] = {"\\S1/2;",
                                     "\\S1^ 2;",
                                     "\\S+0.1#-0.2;",
                                     "\\S12^3;x",
                                     "\\W0.5;",
                                     "\\W2;",
                                     "\\T0.5;",
                                     "\\T2;",
                                     "\\f@A|b1;",
                                     "{\\fArial|i1;x}",
                                     "\\Fgdt;",
                                     "\\H5;",
                                     "\\H0.5x;",
                                     "\\pi2;",
                                     "\\~",
                                     "\\O",
                                     "\\o",
                                     "\\l",
                                     "\\K",
                                     "\\{",
                                     "\\}",
                                     "\\\\",
                                     "%%%",
                                     "%%065",
                                     "%%k",
                                     "%%s",
                                     "^J",
                                     "^I",
                                     "^ ",
                                     "\\N",
                                     "\\X",
                                     "\\U+FF71",
                                     "\\M+182A0",
                                     "\\A2;",
                                     "\\c255;",
                                     "ABC",
                                     "Wide Words ",
                                     "\\S;",
                                     "\\S/;"};
constexpr uint32_t textLimit = 230;  // with all that is added, within what the reader takes

std::string RandomText(Writer& writer) {
  std::string text;
  for (uint32_t count = writer.Below(writer.Chance(90) ? 10 : 150); count > 0; --count) {
    const auto byte = static_cast<char>(1 + writer.Below(255));
    if (writer.isOdd && writer.Chance(30))
      text += writer.OneOf(measuredCodes);
    else if (writer.Chance(40))
      text += writer.OneOf(textCodes);
    else if (writer.Chance(80))
      text += writer.OneOf(textCharacters);
    else if (!std::strchr(barredBytes, byte))
      text += byte;
  }
  if (text.size() > textLimit) text.resize(textLimit);
  return text;
}

// What is before all codes stays; at the end it would go along with the rest of a brace.
std::string TextWithKanji(Writer& writer) {
  static const char* const leadingCodes[] = {"", "\\A1;", "\\A1;\\A0;", "\\C1;", "}}", "\\A"};
  std::string text = RandomText(writer);
  if (writer.isOdd && writer.Chance(70)) return text;
  if (writer.Chance(60)) return kanji + text + (writer.Chance(5) ? "\\S1^ 2;" : "");
  text.erase(std::remove(text.begin(), text.end(), '{'), text.end());
  return writer.OneOf(leadingCodes) + text + kanji;
}

std::string MTextOfNoWidth(Writer& writer) {
  if (writer.isOdd && writer.Chance(70)) return RandomText(writer);
  return (writer.Chance(20) ? "\\W0;\\T0.7;" : "\\W0;") + RandomText(writer);
}

void WriteTextHeight(Writer& writer) {
  if (!writer.Chance(3)) writer.Group(40, writer.Chance(3) ? writer.Coordinate() : writer.Number(0.0, 12.0));
}

void WriteText(Writer& writer) {
  writer.Group(1, TextWithKanji(writer));
  WritePlace(writer);
  WriteTextHeight(writer);
  if (writer.Chance(40)) writer.Group(41, writer.Number(0.0, 2.0));
  if (writer.Chance(60)) writer.Group(50, writer.Number(-10.0, 370.0));
  if (writer.Chance(20)) writer.Group(51, writer.Number(-30.0, 30.0));
  if (writer.Chance(30)) writer.Group(7, "STANDARD");
  if (writer.Chance(20)) writer.Group(71, std::to_string(writer.Below(7)));
  if (writer.Chance(60)) writer.Group(72, std::to_string(writer.Chance(50) ? 5 : writer.Below(7)));
  if (writer.Chance(60)) WritePoint(writer, 11, writer.Coordinate(), writer.Coordinate());
  if (writer.Chance(30)) writer.Group(73, std::to_string(writer.Below(4)));
}

void WriteMText(Writer& writer) {
  writer.Group(1, MTextOfNoWidth(writer));
  WritePlace(writer);
  WriteTextHeight(writer);
  if (writer.Chance(80)) writer.Group(41, writer.Number(0.0, 200.0));
  if (writer.Chance(10)) writer.Group(3, RandomText(writer));
  if (writer.Chance(20)) writer.Group(1, MTextOfNoWidth(writer));
  if (writer.Chance(40)) writer.Group(44, writer.Number(0.2, 4.0));
  if (writer.Chance(30)) writer.Group(50, writer.Number(-10.0, 370.0));
  if (!writer.Chance(5)) writer.Group(71, std::to_string(writer.Below(11)));
  if (writer.Chance(50)) writer.Group(72, std::to_string(writer.Below(6)));
  if (writer.Chance(60))
    WritePoint(writer, 11, writer.Chance(20) ? "0.0" : writer.Number(-1.0, 1.0),
               writer.Chance(20) ? "0.0" : writer.Number(-1.0, 1.0));
}

void WriteAttrib(Writer& writer) {
  WritePlace(writer);
  WriteTextHeight(writer);
  if (!writer.Chance(3)) writer.Group(1, RandomText(writer));
  if (writer.Chance(90)) writer.Group(2, "TAG");
  if (writer.Chance(40)) writer.Group(70, std::to_string(writer.Below(16)));
  if (writer.Chance(40)) writer.Group(41, writer.Number(-0.5, 2.0));
  if (writer.Chance(60))
    writer.Group(50, writer.Chance(3) ? writer.Coordinate() : writer.Number(-10.0, 370.0));
  if (writer.Chance(40)) writer.Group(71, std::to_string(writer.Below(7)));
  if (writer.Chance(40)) writer.Group(72, std::to_string(writer.Below(6)));
  if (writer.Chance(30)) WritePoint(writer, 11, writer.Coordinate(), writer.Coordinate());
}

void WriteLeader(Writer& writer) {
  if (writer.Chance(80)) writer.Group(3, writer.OneOf(dimStyleNames));
  if (writer.Chance(20)) writer.Group(77, std::to_string(writer.Below(9)));
  if (writer.Chance(50)) writer.Group(41, writer.Number(0.0, 60.0));
  // Upright and level legs take ways of their own.
  std::string x = writer.Coordinate();
  std::string y = writer.Coordinate();
  for (uint32_t count = writer.Below(6); count > 0; --count) {
    WritePoint(writer, 10, x, y);
    if (!writer.Chance(20)) x = writer.Coordinate();
    if (!writer.Chance(20)) y = writer.Coordinate();
  }
  if (!writer.Chance(30)) return;
  writer.Group(1000, "DSTYLE");
  writer.Group(1000, writer.OneOf(blockNames));
}

// The frame's text has a font of its own, but its place depends on none.
void WriteTolerance(Writer& writer) {
  static const char* const pieces[] = {"{\\Fgdt;j}", "{\\Fgdt;n}", "{\\Fgdt;m}", "{\\Fgdt;z}", "{\\Fgdt;J}",
                                       "%%v",        "%%v",        "%%v",        "^J",         "0.05",
                                       "A",          "\x8A\xEE",   "\"",         "{",          "%"};
  if (writer.Chance(80)) writer.Group(3, writer.OneOf(dimStyleNames));
  WritePlace(writer);
  std::string frame;
  for (uint32_t count = writer.Below(12); count > 0; --count) frame += writer.OneOf(pieces);
  writer.Group(1, frame);
  if (writer.Chance(40)) writer.Group(1040, writer.Number(0.0, 8.0));
}

// A path of a hatch's boundary about a place. Small, as each of its rows goes to the listing. No ellipses:
// their rectangles are split otherwise by each system.
void WriteHatchPath(Writer& writer, double x, double y) {
  const auto beside = [&](double middle) { return writer.Number(middle - 12.0, middle + 12.0); };
  const auto point = [&](int32_t code) {
    writer.Group(code, beside(x));
    writer.Group(code + 10, beside(y));
  };
  writer.Group(92, "1");
  if (writer.Chance(50)) {
    writer.Group(72, std::to_string(writer.Below(2)));
    writer.Group(73, std::to_string(writer.Below(2)));
    for (uint32_t corners = writer.Below(7); corners > 0; --corners) {
      point(10);
      if (writer.Chance(30)) writer.Group(42, writer.Number(-1.5, 1.5));
    }
  } else {
    for (uint32_t edges = writer.Below(6); edges > 0; --edges) {
      const uint32_t kind = writer.Below(3);
      writer.Group(72, kind == 0 ? "2" : kind == 1 ? "4" : "1");
      point(10);
      if (kind == 2) point(11);
      if (kind != 0) continue;
      writer.Group(40, writer.Number(0.0, 8.0));
      writer.Group(50, writer.Number(-90.0, 360.0));
      writer.Group(51, writer.Number(-90.0, 450.0));
      writer.Group(73, std::to_string(writer.Below(2)));
    }
  }
  if (writer.Chance(97)) writer.Group(97, "0");
}

void WriteHatchFamily(Writer& writer) {
  static const char* const angles[] = {"0",   "30",    "45.0", "44.9999999", "90", "135",
                                       "180", "225.5", "270",  "300",        "360"};
  writer.Group(53, writer.OneOf(angles));
  writer.Group(43, writer.Number(-5.0, 5.0));
  writer.Group(44, writer.Number(-5.0, 5.0));
  writer.Group(45, writer.Chance(20) ? "0.0" : writer.Number(-4.0, 4.0));
  writer.Group(46, writer.Chance(20) ? "0.0" : writer.Number(-4.0, 4.0));
  const uint32_t dashes = writer.Below(5);
  writer.Group(79, std::to_string(dashes));
  for (uint32_t i = 0; i < dashes; ++i)
    writer.Group(49,
                 writer.Chance(15) ? "0.0" : writer.Number(i % 2 == 0 ? 0.5 : -3.0, i % 2 == 0 ? 6.0 : -0.5));
}

// A sheet that is measured can become so large that nothing is left of the offsets in a pattern. Its hatch
// would have all the strokes of the limit, which are millions of lines in a listing.
void WriteHatch(Writer& writer) {
  const bool isSolid = !writer.tellsSize || writer.Chance(40);
  writer.Group(2, isSolid ? "SOLID" : writer.Chance(10) ? "solid" : "ANSI31");
  const uint32_t paths = writer.Below(4);
  writer.Group(91, std::to_string(paths));
  const double x = 20.0 + writer.Below(250);
  const double y = 20.0 + writer.Below(150);
  for (uint32_t i = 0; i < paths; ++i) WriteHatchPath(writer, x, y);
  if (writer.Chance(97)) writer.Group(75, std::to_string(writer.Below(3)));
  if (isSolid) return;
  for (uint32_t families = writer.Below(4); families > 0; --families) WriteHatchFamily(writer);
  if (writer.Chance(97)) writer.Group(98, "0");
}

struct EntityKind {
  const char* name;
  void (*write)(Writer& writer);
};

const EntityKind entityKinds[] = {
    {"LINE", WriteLine},     {"LINE", WriteLine},         {"LINE", WriteLine},
    {"ARC", WriteArc},       {"CIRCLE", WriteRound},      {"ELLIPSE", WriteEllipse},
    {"POINT", WritePlace},   {"POLYLINE", WritePolyline}, {"LWPOLYLINE", WriteLwPolyline},
    {"SPLINE", WriteSpline}, {"SOLID", WriteSolid},       {"TRACE", WriteSolid},
    {"TEXT", WriteText},     {"MTEXT", WriteMText},       {"TOLERANCE", WriteTolerance},
};

void WriteEntity(Writer& writer, const EntityKind& kind) {
  writer.Group(0, writer.Chance(90) ? kind.name : writer.OneOf(otherEntities));
  WriteProperties(writer);
  kind.write(writer);
  if (writer.Chance(5)) writer.Group(8, writer.OneOf(layerNames));
}

void WriteAnyEntity(Writer& writer) {
  WriteEntity(writer, entityKinds[writer.Below(sizeof entityKinds / sizeof entityKinds[0])]);
}

// Where both its Y and a group 3 are missing the block would run on into the next ones, and so come to hold
// itself.
void WriteBasePoint(Writer& writer, const char* block) {
  if (writer.Chance(50)) {
    WritePlace(writer);
    writer.Group(3, block);
  } else {
    writer.Group(10, writer.Coordinate());
    writer.Group(20, writer.Coordinate());
  }
}

// A block holds only blocks that are before it: one within itself would be drawn as deep as the stack
// goes, and that differs from build to build.
void WriteBlocks(Writer& writer) {
  writer.Group(0, "SECTION");
  writer.Group(2, "BLOCKS");
  constexpr uint32_t blockCount = sizeof blockNames / sizeof blockNames[0];
  for (uint32_t block = 0; block < blockCount; ++block) {
    if (writer.Chance(10)) continue;
    writer.Group(0, "BLOCK");
    if (writer.Chance(50)) writer.Group(330, "1F");
    writer.Group(8, writer.OneOf(layerNames));
    writer.Group(2, blockNames[block]);
    WriteBasePoint(writer, blockNames[block]);
    for (uint32_t count = writer.Below(8); count > 0; --count) {
      if (block > 0 && writer.Chance(20)) {
        writer.Group(0, "INSERT");
        WriteProperties(writer);
        WritePlayedBlock(writer, blockNames[writer.Below(block)]);
      } else if (writer.Chance(10)) {
        WriteEntity(writer, {"HATCH", WriteArrowhead});
      } else {
        WriteAnyEntity(writer);
      }
    }
    writer.Group(0, "ENDBLK");
  }
  writer.Group(0, "ENDSEC");
}

void WriteEntities(Writer& writer) {
  writer.Group(0, "SECTION");
  writer.Group(2, "ENTITIES");
  for (uint32_t count = writer.Below(60); count > 0; --count) {
    if (writer.Chance(10)) WriteEntity(writer, {"LEADER", WriteLeader});
    if (writer.Chance(15))
      WriteEntity(writer, {"INSERT", WriteInsert});
    else if (writer.Chance(15))
      WriteEntity(writer, {"DIMENSION", WriteDimension});
    else if (writer.Chance(8))
      WriteEntity(writer, {"HATCH", WriteHatch});
    else if (writer.Chance(10))
      WriteEntity(writer, {"ATTRIB", WriteAttrib});
    else
      WriteAnyEntity(writer);
    // May bring the groups out of step; not within blocks, as one that misses its end could come to hold
    // itself. Not Latin, as it may be a TEXT's.
    if (writer.Chance(1)) writer.Group(1, std::string(200 + writer.Below(200), '#'));
  }
  writer.Group(0, "ENDSEC");
}

using Lines = std::vector<std::string>;  // those of a group one after the other, with their ends

Lines LinesOf(const std::string& text) {
  Lines lines;
  for (size_t start = 0; start < text.size();) {
    const size_t end = std::min(text.find('\n', start), text.size() - 1) + 1;
    lines.push_back(text.substr(start, end - start));
    start = end;
  }
  return lines;
}

void SwapGroups(Lines& lines, size_t group, size_t other) {
  std::swap(lines[2 * group], lines[2 * other]);
  std::swap(lines[2 * group + 1], lines[2 * other + 1]);
}

// Changes the groups of a record, from after its group 0 to the next one.
void DisorderRecord(Writer& writer, Lines& lines, size_t first, size_t end) {
  const auto some = [&] { return first + writer.Below(static_cast<uint32_t>(end - first)); };
  const size_t group = some();
  const auto place = lines.begin() + static_cast<std::ptrdiff_t>(2 * group);
  switch (writer.Below(4)) {
    case 0: lines.erase(place, place + 2); break;
    case 1: {
      const Lines repeated(place, place + 2);
      lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(2 * some()), repeated.begin(), repeated.end());
      break;
    }
    case 2: SwapGroups(lines, group, some()); break;
    default:
      for (size_t i = first; i + 1 < end; ++i)
        SwapGroups(lines, i, i + writer.Below(static_cast<uint32_t>(end - i)));
      break;
  }
}

// A drawing cut off within a text, or one with blocks within themselves, would end otherwise in each build. So heads of blocks
// and their arrowheads keep their order.
bool KeepsOrder(const std::string& keyword) {
  return keyword.compare(0, 5, "BLOCK") == 0 || keyword.compare(0, 5, "HATCH") == 0 ||
         keyword.compare(0, 7, "SECTION") == 0 || keyword.compare(0, 3, "END") == 0;
}

std::string Disordered(Writer& writer, const std::string& text) {
  Lines lines = LinesOf(text);
  for (size_t group = lines.size() / 2; group-- > 0;) {
    if (std::atoi(lines[2 * group].c_str()) != 0 || KeepsOrder(lines[2 * group + 1]) || !writer.Chance(15))
      continue;
    size_t end = group + 1;
    while (2 * end + 1 < lines.size() && std::atoi(lines[2 * end].c_str()) != 0) ++end;
    if (end > group + 1) DisorderRecord(writer, lines, group + 1, end);
  }
  std::string disordered;
  for (const std::string& line : lines) disordered += line;
  return disordered;
}

const EntityKind otherKinds[] = {
    {"LEADER", WriteLeader}, {"INSERT", WriteInsert}, {"DIMENSION", WriteDimension},
    {"HATCH", WriteHatch},   {"ATTRIB", WriteAttrib},
};

}  // namespace

std::string RandomRecord(uint32_t seed) {
  Writer writer(seed);
  writer.tellsSize = true;
  writer.isOdd = true;
  if (writer.Chance(55))
    WriteAnyEntity(writer);
  else if (writer.Chance(80))
    WriteEntity(writer, otherKinds[writer.Below(sizeof otherKinds / sizeof otherKinds[0])]);
  else if (writer.Chance(60))
    WriteTables(writer);
  else if (writer.Chance(50))
    WriteHeader(writer);
  else
    WriteBlocks(writer);
  return writer.text;
}

std::string RandomDrawing(uint32_t seed) {
  Writer writer(seed);
  if (writer.Chance(95)) WriteHeader(writer);
  if (writer.Chance(90)) WriteTables(writer);
  if (writer.Chance(80)) WriteBlocks(writer);
  WriteEntities(writer);
  if (writer.Chance(10)) WriteEntities(writer);
  writer.Group(0, "EOF");
  const auto somewhere = [&] { return writer.Below(static_cast<uint32_t>(writer.text.size())); };
  if (writer.Chance(10)) writer.text.resize(somewhere() + 1);
  if (writer.Chance(3)) writer.text[somewhere()] = 0x1A;
  return writer.text;
}

std::string OddDrawing(uint32_t seed) {
  Writer writer(seed);
  writer.isOdd = true;
  if (writer.Chance(95)) WriteHeader(writer);
  for (uint32_t sections = 1 + writer.Below(4); sections > 0; --sections) {
    if (writer.Chance(75)) WriteTables(writer);
    if (writer.Chance(60)) WriteBlocks(writer);
    if (writer.Chance(10)) WriteHeader(writer);
    if (writer.Chance(85)) WriteEntities(writer);
  }
  writer.Group(0, "EOF");
  return writer.Chance(70) ? Disordered(writer, writer.text) : writer.text;
}

}  // namespace hexlume
