// A pen that stays selected on the canvas when its converter gives up.
#pragma once

#include "platform/gdi.h"

namespace hexlume {

// Takes over a pen that is selected on the canvas, and is going to stay so: the strokes that follow put it
// back behind their own. The one left before it is deleted. So a drawing leaves one at most, however many
// there were.
void LeavePen(HPEN pen);

// Deletes the pen that was left last, once the canvas is gone.
void DeleteLeftPen();

}  // namespace hexlume
