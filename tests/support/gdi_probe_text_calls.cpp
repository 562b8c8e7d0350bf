#include <algorithm>
#include <cstring>
#include <iterator>
#include <string>

#include "support/gdi_probe_calls.h"

namespace hexlume {

namespace {

constexpr const char* gothic = "\x82\x6C\x82\x72\x20\x83\x53\x83\x56\x83\x62\x83\x4E";
constexpr const char* mixedText = "AW.\x83\x4A\xB6\xDE\x88\x9F\x87\x40\xFB\x40";
// Latin letters, katakana of half width, signs, brackets, small and large kana, a kanji.
constexpr const char* verticalText =
    "Ai9 \xB6\xDE\x81\x40\x81\x41\x81\x5B\x81\x69\x81\x6A\x81\x65\x81\x7D\x81\x8B\x81\x98\x81\xA8"
    "\x82\x9F\x82\xA0\x82\x54\x82\x67\x83\x40\x83\x4A\x83\x78\x88\x9F";

LOGFONTA Font(int height, int width, const char* face) {
  LOGFONTA font = {};
  font.lfHeight = height;
  font.lfWidth = width;
  font.lfCharSet = SHIFTJIS_CHARSET;
  font.lfClipPrecision = 16;
  std::memcpy(font.lfFaceName, face, std::min(std::strlen(face), sizeof font.lfFaceName - 1));
  return font;
}

void Write(HDC dc, int x, int y, const char* text) {
  TextOutA(dc, x, y, text, static_cast<int>(std::strlen(text)));
}

template <typename Draw>
void WithFont(HDC dc, const LOGFONTA& font, Draw draw) {
  const HFONT made = CreateFontIndirectA(&font);
  const HGDIOBJ before = SelectObject(dc, made);
  draw();
  SelectObject(dc, before);
  DeleteObject(made);
}

void AddMetrics(HDC dc, ProbeResults& results) {
  TEXTMETRICA metrics = {};
  results.push_back(GetTextMetricsA(dc, &metrics));
  for (const long long value :
       {metrics.tmHeight, metrics.tmAscent, metrics.tmDescent, metrics.tmInternalLeading,
        metrics.tmExternalLeading, metrics.tmAveCharWidth, metrics.tmMaxCharWidth}) {
    results.push_back(value);
  }
  results.push_back(metrics.tmPitchAndFamily);
  results.push_back(metrics.tmCharSet);
}

void Heights(HDC dc, ProbeResults& results) {
  SetMapMode(dc, MM_HIMETRIC);
  for (int height = 0; height <= 5100; height += height < 600 ? 1 : 25) {
    WithFont(dc, Font(height, 0, gothic), [&] { AddMetrics(dc, results); });
  }
}

void NegativeHeights(HDC dc, ProbeResults& results) {
  SetMapMode(dc, MM_HIMETRIC);
  for (int height = -1; height >= -3000; height -= 59) {
    WithFont(dc, Font(height, 0, ""), [&] { AddMetrics(dc, results); });
  }
}

void LargeHeights(HDC dc, ProbeResults& results) {
  SetMapMode(dc, MM_HIMETRIC);
  for (int height = 5075; height <= 150000; height += 5075) {
    WithFont(dc, Font(height, 0, ""), [&] { AddMetrics(dc, results); });
  }
  // A cell or a character at these heights is near a half in logical units.
  for (const int height : {-140410, -154340, -158992, -161846, -163644, -166578, -171283})
    WithFont(dc, Font(height, 0, ""), [&] { AddMetrics(dc, results); });
}

void Widths(HDC dc, ProbeResults& results) {
  SetMapMode(dc, MM_HIMETRIC);
  for (const int height : {30, 100, 250, 500, 1000, 2500}) {
    for (const int width :
         {-1000, -300, -20, 10, 26, 27, 39, 53, 100, 117, 200, 300, 333, 450, 777, 1500, 20000, 300000}) {
      WithFont(dc, Font(height, width, gothic), [&] {
        AddMetrics(dc, results);
        Write(dc, 100, -500, mixedText);
      });
    }
  }
}

// INT32_MIN has no absolute value.
void WidthsAtTheEndsOfNumbers(HDC dc, ProbeResults& results) {
  SetMapMode(dc, MM_HIMETRIC);
  for (const int height : {-448, 0, 16, 26, 100, 417, 1000, 30000}) {
    for (const int width : {INT32_MIN, INT32_MIN + 1, -2000000000, 2000000000, INT32_MAX}) {
      WithFont(dc, Font(height, width, gothic), [&] {
        AddMetrics(dc, results);
        // How wide its characters are differs between Windows programs of 32 and 64 bits.
        if (width != INT32_MIN) Write(dc, 100, -500, mixedText);
      });
    }
  }
}

void HeightsInText(HDC dc, ProbeResults& results) {
  for (int height = -60; height <= 200; ++height) {
    WithFont(dc, Font(height, 0, gothic), [&] {
      AddMetrics(dc, results);
      Write(dc, 10, 20, mixedText);
    });
  }
}

void Faces(HDC dc, ProbeResults& results) {
  SetMapMode(dc, MM_HIMETRIC);
  for (const char* face : {gothic, "", "no such face", "Arial", "IPAGothic", "ipagothic", "IPAPGothic",
                           "IPAMincho", "IPA\x83\x53\x83\x56\x83\x62\x83\x4E", "DejaVu Sans",
                           "A face whose name is longer than what a font can hold"}) {
    for (const int height : {100, 417, 1000, 2511}) {
      WithFont(dc, Font(height, 0, face), [&] {
        AddMetrics(dc, results);
        Write(dc, 100, -500, mixedText);
      });
    }
  }
}

// Vertical text. Families that are there, under both their names, and such as aren't.
void VerticalFaces(HDC dc, ProbeResults& results) {
  SetMapMode(dc, MM_HIMETRIC);
  for (const char* face :
       {"@Arial", "@", "@@", "@ ", "@@IPAGothic", "@no such face", "@DejaVu Sans", "@IPAGothic", "@ipagothic",
        "@IPAPGothic", "@IPA\x83\x53\x83\x56\x83\x62\x83\x4E", "@IPA P\x83\x53\x83\x56\x83\x62\x83\x4E",
        "@\x82\x6C\x82\x72\x20\x83\x53\x83\x56\x83\x62\x83\x4E", " @IPAPGothic", "\x81\x97IPAPGothic",
        "@A face whose name is longer than a font's"}) {
    for (const int height : {-448, 0, 26, 100, 290, 417, 448, 1000, 2511}) {
      WithFont(dc, Font(height, 0, face), [&] {
        AddMetrics(dc, results);
        Write(dc, 100, -500, verticalText);
      });
    }
  }
}

void WidthsOfOtherFaces(HDC dc, ProbeResults& results) {
  SetMapMode(dc, MM_HIMETRIC);
  for (const char* face : {"IPAPGothic", "@IPAPGothic", "@IPAGothic", "@Arial"}) {
    for (const int height : {30, 100, 448, 1000, 2511, 6615}) {
      for (const int width : {-300, -20, 10, 39, 117, 185, 212, 333, 777, 1500, 3307, 20000, 300000}) {
        WithFont(dc, Font(height, width, face), [&] {
          AddMetrics(dc, results);
          Write(dc, 100, -500, verticalText);
        });
      }
    }
  }
}

void TurnedVerticalText(HDC dc, ProbeResults& results) {
  SetMapMode(dc, MM_HIMETRIC);
  SetTextAlign(dc, TA_BOTTOM);
  for (const int escapement : {1, 300, 900, 1800, 2700, 3600, -900}) {
    for (const int width : {0, 333}) {
      LOGFONTA font = Font(700, width, "@Arial");
      font.lfEscapement = escapement;
      font.lfOrientation = 150;
      font.lfItalic = 1;
      WithFont(dc, font, [&] {
        AddMetrics(dc, results);
        Write(dc, 5000, -6000, verticalText);
      });
    }
  }
}

// A row for each lead byte, those of the single bytes too, and one of the single bytes.
void WriteEveryCharacter(HDC dc) {
  for (int lead = 0x81; lead <= 0xFC; ++lead) {
    std::string row;
    for (int trail = 0x40; trail <= 0xFC; ++trail) {
      row += static_cast<char>(lead);
      row += static_cast<char>(trail);
    }
    Write(dc, 0, 0, row.c_str());
  }
  std::string singles;
  for (int byte = ' '; byte < 0x80; ++byte) singles += static_cast<char>(byte);
  for (int byte = 0xA1; byte <= 0xDF; ++byte) singles += static_cast<char>(byte);
  Write(dc, 0, 0, singles.c_str());
}

void EveryCharacterOfVerticalText(HDC dc, ProbeResults&) {
  for (const char* face : {"@Arial", "@IPAGothic"}) {
    for (const int height : {11, 14, 88}) {
      WithFont(dc, Font(height, 0, face), [&] { WriteEveryCharacter(dc); });
    }
  }
  WithFont(dc, Font(131, 66, "@Arial"), [&] { WriteEveryCharacter(dc); });
}

void NoFont(HDC dc, ProbeResults& results) {
  SetMapMode(dc, MM_HIMETRIC);
  AddMetrics(dc, results);
  Write(dc, 100, -500, mixedText);
}

void Aligned(HDC dc, UINT align) {
  SetTextAlign(dc, align);
  for (const int extra : {0, 31, -30, -3000}) {
    SetTextCharacterExtra(dc, extra);
    Write(dc, 1000, -500, "AB\xB1");
    Write(dc, -3000, 1500, "C");
  }
}

void Alignments(HDC dc, ProbeResults&) {
  SetMapMode(dc, MM_HIMETRIC);
  WithFont(dc, Font(1000, 0, gothic), [&] {
    for (UINT align = 0; align < 32; ++align) Aligned(dc, align);
  });
}

void AlignmentsInText(HDC dc, ProbeResults&) {
  WithFont(dc, Font(40, 0, gothic), [&] {
    for (UINT align = 0; align < 32; ++align) Aligned(dc, align);
  });
}

void TurnedText(HDC dc, ProbeResults& results) {
  SetMapMode(dc, MM_HIMETRIC);
  SetTextAlign(dc, TA_BOTTOM);
  for (const int escapement : {1, 300, 900, 1800, -900}) {
    LOGFONTA font = Font(700, 0, gothic);
    font.lfEscapement = escapement;
    font.lfOrientation = 150;
    font.lfItalic = 1;
    WithFont(dc, font, [&] {
      AddMetrics(dc, results);
      Write(dc, 5000, -6000, mixedText);
    });
  }
}

void EmptyTexts(HDC dc, ProbeResults& results) {
  SetMapMode(dc, MM_HIMETRIC);
  results.push_back(TextOutA(dc, 100, -500, "", 0));
  results.push_back(TextOutA(dc, 300, -700, nullptr, 0));
  results.push_back(TextOutA(dc, 1, 2, "x", -1));
  results.push_back(TextOutA(nullptr, 1, 2, "x", 1));
}

void TextsAtTheEndsOfThePlane(HDC dc, ProbeResults&) {
  SetMapMode(dc, MM_HIMETRIC);
  WithFont(dc, Font(500, 0, gothic), [&] {
    for (const UINT align : {TA_TOP, TA_BOTTOM, TA_BASELINE, TA_CENTER, TA_RIGHT}) {
      SetTextAlign(dc, align);
      for (const int x : {INT32_MIN, 0, INT32_MAX}) {
        for (const int y : {INT32_MIN, 0, INT32_MAX}) Write(dc, x, y, mixedText);
      }
    }
  });
}

void OddBytes(HDC dc, ProbeResults&) {
  SetMapMode(dc, MM_HIMETRIC);
  WithFont(dc, Font(500, 0, gothic), [&] {
    Write(dc, 1, 2, "\x81");
    Write(dc, 1, 2, "A\r\n\tB\x01");
    Write(dc, 1, 2, "\xF0\x40\xFC\xFC\x80\xFF\xA0\x81");
    TextOutA(dc, 1, 2, "A\0B\x81\0", 5);
  });
}

void FixedPitchFont(HDC dc, ProbeResults& results) {
  SetMapMode(dc, MM_HIMETRIC);
  const HFONT font = CreateFontA(350, 0, 0, 0, 1, 0, 0, 0, SHIFTJIS_CHARSET, 0, 0, 2, 49, nullptr);
  const HGDIOBJ before = SelectObject(dc, font);
  AddMetrics(dc, results);
  Write(dc, 1000, -2000, mixedText);
  SelectObject(dc, before);
  results.push_back(DeleteObject(font));
  results.push_back(CreateFontIndirectA(nullptr) == nullptr);
}

constexpr ProbeCalls textProbes[] = {
    {"heights", Heights},
    {"negative heights", NegativeHeights},
    {"large heights", LargeHeights},
    {"widths", Widths},
    {"widths at the ends of numbers", WidthsAtTheEndsOfNumbers},
    {"heights in text", HeightsInText},
    {"faces", Faces},
    {"vertical faces", VerticalFaces},
    {"widths of other faces", WidthsOfOtherFaces},
    {"turned vertical text", TurnedVerticalText},
    {"every character of vertical text", EveryCharacterOfVerticalText},
    {"no font", NoFont},
    {"alignments", Alignments},
    {"alignments in text", AlignmentsInText},
    {"turned text", TurnedText},
    {"empty texts", EmptyTexts},
    {"texts at the ends of the plane", TextsAtTheEndsOfThePlane},
    {"odd bytes", OddBytes},
    {"fixed pitch font", FixedPitchFont},
};

}  // namespace

const std::vector<ProbeCalls>& TextProbes() {
  static const std::vector<ProbeCalls> probes(std::begin(textProbes), std::end(textProbes));
  return probes;
}

}  // namespace hexlume
