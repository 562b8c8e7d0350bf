// How an MTEXT's paragraphs are placed and drawn.
#pragma once

#include <cstdint>

#include "canvas/canvas.h"
#include "text/mtext_codes.h"

namespace hexlume {

struct MText {
  LOGFONTA font = {};       // lfWidth is the previous paragraph's, once one is drawn
  double dirX = 1.0;        // group 11, untransformed
  double dirY = 0.0;        // group 21, untransformed
  double angle = 0.0;       // radians
  double lineFactor = 1.0;  // group 44
  int32_t attach = 0;       // group 71
  int32_t flow = 0;         // group 72
  MTextCodes codes;
};

// The paragraphs of an MTEXT. Lengths are in model units times 100.
struct MTextLines {
  int32_t index;  // of the current paragraph, from 0
  int32_t count;
  int32_t half;   // count / 2
  double step;    // from line to line
  double x0, y0;  // the entity's point
};

// Set angle and escapement from dirX and dirY. The formulas of the scopes differ for dirX < 0.
void SetEntDirection(MText& mtext);
void SetBlockDirection(MText& mtext);
void SetDimDirection(MText& mtext);

// The angle of the code "\Q" becomes the orientation. Any angle but 0 makes the font italic.
void SetOblique(MText& mtext);

// Counts the paragraphs in entText, in every scope.
MTextLines CountedLines(const MText& mtext, double x0, double y0);

// Set (x, y), the previous paragraph's anchor, to the current one's. Lines step along Y at any angle, except
// attachments 4 to 6 with an odd number of lines, which step perpendicular to the text. Formulas that start
// from y, not from y0, accumulate the steps.
void AnchorEntParagraph(const MText& mtext, const MTextLines& lines, double& x, double& y);
void AnchorBlockParagraph(const MText& mtext, const MTextLines& lines, double& x, double& y);
void AnchorDimParagraph(const MText& mtext, const MTextLines& lines, double& x, double& y);

void AlignText(Canvas canvas, int32_t attach);

// Draws a paragraph at a point of the model. The font is created twice, to measure and to draw. Returns false
// if the paragraph isn't in the view: then those after it aren't drawn either.
bool DrawParagraph(Canvas canvas, const char* text, double x, double y, int32_t color, MText& mtext,
                   const ViewRect& view, int32_t wholeTextClip);

}  // namespace hexlume
