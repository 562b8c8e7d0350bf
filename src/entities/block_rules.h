// The rules of the twins that stand in a block, or in a block inserted in a dimension's block, where they
// differ from those of the ENTITIES section. inherit is the entity's own flag that says its colour may come
// from the INSERT.
#pragma once

#include <cstdint>

#include "entities/converter_rules.h"

namespace hexlume {

// Whether two names are equal but for the case of their ASCII letters.
bool EqualsIgnoringCase(const char* a, const char* b);

// Group 6 in a block: whole names in any case.
void ResolveBlockLinetype(const char* value, LineStyle& style, int32_t& inherit);

// Group 6 in a dimension's inserted block: whole names in any case, the family alone, and no record needed.
void ResolveDimInsertLinetype(const char* value, LineStyle& style, int32_t& inherit);

// Group 8, on the group at hand, where no colour is handed down: layer "0" is that of the INSERT. False if
// the user left the layer out.
bool ResolveInsertLayer(LineStyle& style, int32_t& color);

// Group 8, on the group at hand: layer "0" is replaced by that of the INSERT, and its colour by insertColor.
// False if the user left the layer out.
bool ResolveInheritedLayer(LineStyle& style, int32_t& color, int32_t insertColor, int32_t& inherit);

// Group 62 in a block.
void ResolveBlockColor(const char* value, int32_t& color, int32_t insertColor, int32_t inherit);

// Group 62 in a dimension's inserted block.
void ResolveDimInsertColor(const char* value, int32_t& color, int32_t inherit);

}  // namespace hexlume
