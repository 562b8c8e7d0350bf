// Pens and fonts that are still selected on the canvas when their converter returns early.
#pragma once

#include <cstddef>

#include "platform/gdi.h"

namespace hexlume {

// How many pens and how many fonts are kept: a system has a limited number of handles.
constexpr size_t leftObjectLimit = 1000;

// Takes ownership of a pen or font that is selected on the canvas and remains so: the next stroke restores it
// after its own. It is kept until the end of the run, so that the metafile has no record of its deletion.
// Beyond the limit the oldest one of its kind, which can't be selected any more, is deleted.
void LeaveSelected(HGDIOBJ object);

// Deletes all of them, after the canvas has been closed.
void DeleteLeftObjects();

}  // namespace hexlume
