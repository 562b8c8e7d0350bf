#include "entities/block_rules.h"

#include <cstring>

#include "driver/same_name.h"

namespace hexlume {

namespace {

char ToLower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// Applied to the current group. Returns whether it names layer "0", which is replaced by that of the INSERT.
bool ReplaceLayerZero() {
  static_assert(sizeof state.groupValue == sizeof state.insertLayer);
  if (!IsSameName(state.groupValue, "0")) return false;
  // Byte by byte, as most names are shorter than what a call takes.
  const char* from = state.insertLayer;
  char* to = state.groupValue;
  while ((*to++ = *from++) != '\0') {
  }
  return true;
}

// The colour for a group 62 of the drawing. 0 (by block) keeps color if the entity inherits,
// else gives black.
void InheritColor(int32_t number, int32_t& color, int32_t inherit) {
  if (number != 0)
    color = number;
  else if (inherit == 0)
    color = 0;
  color = ResolveColor(color);
}

}  // namespace

bool EqualsIgnoringCase(const char* a, const char* b) {
  while (*a != '\0' && ToLower(*a) == ToLower(*b)) {
    ++a;
    ++b;
  }
  return ToLower(*a) == ToLower(*b);
}

void ResolveBlockLinetype(const char* value, LineStyle& style, int32_t& inherit) {
  CountLinetype();
  if (!EqualsIgnoringCase(value, "CONTINUOUS")) style.family = 0;
  for (const KnownLtype& known : knownLtypes) {
    if (!EqualsIgnoringCase(value, known.keyword) || !IsLtypeDefined(known.pattern)) continue;
    style.family = known.family;
    style.pattern = known.pattern;
  }
  // Only these two spellings count.
  if (std::strcmp(value, "BYBLOCK") == 0 || std::strcmp(value, "ByBlock") == 0) inherit = 1;
}

void ResolveDimInsertLinetype(const char* value, LineStyle& style, int32_t& inherit) {
  CountLinetype();
  // Any other name keeps the layer's family. The misspelt name is accepted as well.
  if (EqualsIgnoringCase(value, "CONTINUOUS") || EqualsIgnoringCase(value, "CONTINUOS")) style.family = 0;
  for (const KnownLtype& known : knownLtypes) {
    if (!EqualsIgnoringCase(value, known.keyword)) continue;
    // These two names are missing in this scope: they keep the layer's family as well.
    if (std::strcmp(known.keyword, "CENTER2") == 0 || std::strcmp(known.keyword, "PHANTOM2") == 0) continue;
    style.family = known.family;
  }
  if (EqualsIgnoringCase(value, "BYBLOCK")) inherit = 1;
}

bool ResolveInsertLayer(LineStyle& style, int32_t& color) {
  ReplaceLayerZero();
  return ResolveLayer(state.groupValue, style, color);
}

bool ResolveInheritedLayer(LineStyle& style, int32_t& color, int32_t insertColor, int32_t& inherit) {
  if (ReplaceLayerZero()) {
    color = -1;
    inherit = 1;
  }
  // If the table has no such layer, the colour is left at -1.
  const int32_t colorBefore = color;
  if (!ResolveLayer(state.groupValue, style, color)) return false;
  if (colorBefore == -1 && FindLayer(state.groupValue)) color = insertColor;
  return true;
}

void ResolveBlockColor(const char* value, int32_t& color, int32_t insertColor, int32_t inherit) {
  if (std::strcmp(state.insertLayer, "0") == 0) color = insertColor;
  InheritColor(Atoi(value), color, inherit);
}

void ResolveDimInsertColor(const char* value, int32_t& color, int32_t inherit) {
  InheritColor(Atoi(value), color, inherit);
}

}  // namespace hexlume
