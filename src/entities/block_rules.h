// The rules of the twins for blocks, and for blocks inserted in a dimension's block, where they differ from
// those of the ENTITIES section. inherit is the entity's own flag: 1 if its colour may come from the INSERT.
#pragma once

#include <cstdint>

#include "entities/converter_rules.h"

namespace hexlume {

// Whether two names are equal, ignoring the case of ASCII letters.
bool EqualsIgnoringCase(const char* a, const char* b);

// Group 6 in a block: compares whole names, ignoring case.
void ResolveBlockLinetype(const char* value, LineStyle& style, int32_t& inherit);

// Group 6 in a dimension's inserted block: compares whole names, ignoring case, and sets the family alone.
// The line type needs no record in the drawing.
void ResolveDimInsertLinetype(const char* value, LineStyle& style, int32_t& inherit);

// Group 8 where no colour is inherited, applied to the current group: layer "0" is replaced by that of the
// INSERT. Returns false if the user has excluded the layer.
bool ResolveInsertLayer(LineStyle& style, int32_t& color);

// Group 8, applied to the current group: layer "0" is replaced by that of the INSERT, and its colour by
// insertColor. Returns false if the user has excluded the layer.
bool ResolveInheritedLayer(LineStyle& style, int32_t& color, int32_t insertColor, int32_t& inherit);

// Group 62 in a block.
void ResolveBlockColor(const char* value, int32_t& color, int32_t insertColor, int32_t inherit);

// Group 62 in a dimension's inserted block.
void ResolveDimInsertColor(const char* value, int32_t& color, int32_t inherit);

}  // namespace hexlume
