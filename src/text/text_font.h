// The font of drawn text. Each string has a font of its own, created before it and deleted after it.
#pragma once

#include <cstdint>

#include "canvas/canvas.h"
#include "driver/conv_state.h"

namespace hexlume {

// MS Gothic, in full-width letters and katakana.
constexpr char gothicFace[] = "\x82\x6C\x82\x72 \x83\x53\x83\x56\x83\x62\x83\x4E";
constexpr char defaultFace[] = "";  // the font mapper chooses one with the Japanese character set

// Returns the face that the option for half-width cells selects.
const char* FaceFor(int32_t halfWidthFont);

// Group 40: sets the cell's size from the text's height in sheet units. The cell is 1.1 times as high, and
// half as wide as high, or of width 0: the font mapper's choice.
void SetCell(LOGFONTA& font, int32_t height, int32_t halfWidthFont);

// Group 50: returns the escapement in tenths of a degree, 3600 for an angle of 0.
int32_t ReadEscapement(const char* value);

// Turns the font by 180 degrees on a rotated sheet.
void TurnFont(LOGFONTA& font);

bool HasNoSize(const LOGFONTA& font);

// Whether a text starts in the view and, unless wholeTextClip is 0, doesn't reach beyond the view's top.
// height is in sheet units.
bool StartsInView(const ViewRect& view, const POINT& place, int32_t height, int32_t wholeTextClip);

// Sets the face and the fields that are the same for all text; height, width, escapement, orientation and
// italic are kept. Throws textTooLongCode for a face that doesn't fit.
void SettleFont(LOGFONTA& font, const char* face);

// Count a font that is used once, and the output of a text of so many bytes.
void CountFont();
void CountText(int32_t length);

// A font of ours, and the one that it has replaced on the canvas.
struct SelectedFont {
  HFONT font;
  HGDIOBJ previous;
};
SelectedFont SelectNewFont(Canvas canvas, const LOGFONTA& font);
void RestoreFont(Canvas canvas, const SelectedFont& selected);

// Returns the metrics of the selected font. Defined in a source of its own (text_metrics.cpp), so that a test
// can give fixed ones.
TEXTMETRICA MeasureFont(Canvas canvas);

// Returns 0 for a text of ASCII letters, half-width katakana, digits, "-", "." and "," alone, else 1. The
// caller strips blanks and brackets before. Selects the Japanese locale.
int32_t ClassifyText(const char* stripped);

// Returns 1 for a text of one double-byte character, else the number of bytes.
int32_t FitCount(const char* text);

// Whether the text ends beyond the view's right, by its number of bytes times aveCharWidth.
bool ReachesBeyond(const ViewRect& view, int32_t x, const char* text, int32_t aveCharWidth);

// Sets the color, the alignment at the bottom left, and no background.
void SetTextModes(Canvas canvas, int32_t color);

// Draws the text at a point of the sheet, turned about the sheet's centre on a rotated sheet. TurnFont has
// turned its font.
void WriteText(Canvas canvas, const POINT& place, const char* text);

// Returns the average character width of the default face at this height, in sheet units.
int32_t MeasureAveCharWidth(Canvas canvas, int32_t height, int32_t escapement);

// Draws entText in entColor at a point in model units times 100. The point isn't turned on a rotated sheet.
void DrawFontText(Canvas canvas, int32_t height, int32_t width, int32_t escapement, double x, double y,
                  int32_t halfWidthFont);

}  // namespace hexlume
