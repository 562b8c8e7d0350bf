// Pens and fonts that stay selected on the canvas when their converter gives up.
#pragma once

#include <cstddef>

#include "platform/gdi.h"

namespace hexlume {

// How many are kept of pens and of fonts each: a system has a limited number of handles.
constexpr size_t leftObjectLimit = 1000;

// Takes over a pen or a font that is selected on the canvas, and is going to stay so: what is drawn next puts
// it back behind its own. It is kept to the end of the run, so that the metafile has no record of its end;
// only beyond the limit the oldest of its kind is deleted, which can't be selected any more.
void LeaveSelected(HGDIOBJ object);

// Deletes all that were left, once the canvas is gone.
void DeleteLeftObjects();

}  // namespace hexlume
