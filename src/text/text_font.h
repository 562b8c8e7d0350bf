// The font of drawn text. Each string has a font of its own, made for it and deleted behind it.
#pragma once

#include <cstdint>

#include "canvas/canvas.h"
#include "driver/conv_state.h"

namespace hexlume {

constexpr char gothicFace[] = "\x82\x6C\x82\x72 \x83\x53\x83\x56\x83\x62\x83\x4E";
constexpr char defaultFace[] = "";  // the mapper picks one of the Japanese character set

// The face of TEXT and of a block's MTEXT.
const char* FaceFor(int32_t halfWidthFont);

// Group 40, from a height on the sheet: a cell is a tenth higher than the drawing has the text, and half as
// wide or as the mapper has it.
void SetCell(LOGFONTA& font, int32_t height, int32_t halfWidthFont);

// Group 50. An angle of 0 is a whole turn.
int32_t ReadEscapement(const char* value);

// On a turned sheet the font turns too.
void TurnFont(LOGFONTA& font);

bool HasNoSize(const LOGFONTA& font);

// Whether a text starts in the view and, where it must lie there as a whole, doesn't reach beyond its top.
bool StandsInView(const ViewRect& view, const POINT& place, int32_t height, int32_t wholeTextClip);

// Fills in what all text has in common, and the face; height, width, escapement, orientation and italic stay.
// A face that is too long throws textTooLongCode.
void SettleFont(LOGFONTA& font, const char* face);

// A font of our own, and the one it has replaced on the canvas.
struct SelectedFont {
  HFONT font;
  HGDIOBJ previous;
};
SelectedFont SelectNewFont(Canvas canvas, const LOGFONTA& font);
void RestoreFont(Canvas canvas, const SelectedFont& selected);

// The metrics of the font that stands selected. In a source of its own (text_metrics.cpp), so that a test can
// feed fixed ones.
TEXTMETRICA MeasureFont(Canvas canvas);

// 1 for a text with anything but letters, digits, "-", "." and ",", or with a double-byte character. Blanks
// and brackets are to be stripped before. Selects the Japanese locale first.
int32_t ClassifyText(const char* stripped);

// "1 if that is 2 bytes which are one character": the length of a text in bytes but for that case.
int32_t FitCount(const char* text);

// Whether the text, by its characters' average width, ends beyond the view's right.
bool ReachesBeyond(const ViewRect& view, int32_t x, const char* text, int32_t aveCharWidth);

// Colour, the alignment at the bottom left, and no background.
void SetTextModes(Canvas canvas, int32_t color);

// On a turned sheet the text starts at the turned point; its font has turned with it.
void WriteText(Canvas canvas, const POINT& place, const char* text);

// The average width of a font's characters, in its default face.
int32_t MeasureAveCharWidth(Canvas canvas, int32_t height, int32_t escapement);

// Draws entText at a point of the model, in model units times 100, in entColor. The sheet's turn isn't
// applied here.
void DrawFontText(Canvas canvas, int32_t height, int32_t width, int32_t escapement, double x, double y,
                  int32_t halfWidthFont);

}  // namespace hexlume
