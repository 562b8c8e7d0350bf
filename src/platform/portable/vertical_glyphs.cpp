#include "platform/portable/vertical_glyphs.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <iterator>

namespace hexlume {

namespace {

struct UnitRange {
  char16_t first;
  char16_t last;
};

constexpr UnitRange uprightCharacters[] = {
#include "platform/portable/upright_characters.inc"
};

constexpr size_t tagLength = 4;

// More than any font needs. Ends the reading of a table that repeats glyphs endlessly.
constexpr size_t mostSteps = 1 << 20;

// Reads the GSUB table of a font file: 16-bit big-endian words, which are offsets, counts and glyphs.
class SubstitutionTable {
 public:
  SubstitutionTable(const std::vector<uint8_t>& bytes, std::map<uint32_t, uint32_t>& substitutes)
      : table(bytes), glyphs(substitutes) {}

  void Read() {
    const size_t feature = FindFeature();
    if (feature == 0) return;
    const size_t lookups = WordAt(8);
    const size_t count = WordAt(feature + 2);
    for (size_t i = 0; i < count; ++i)
      AddLookup(lookups + WordAt(lookups + 2 + 2 * WordAt(feature + 4 + 2 * i)));
  }

 private:
  // Returns 0 beyond the end of the table.
  size_t WordAt(size_t place) const {
    return place + 2 <= table.size() ? static_cast<size_t>(table[place] << 8 | table[place + 1]) : 0;
  }

  bool HasTag(size_t place, const char* tag) const {
    return place + tagLength <= table.size() && std::memcmp(&table[place], tag, tagLength) == 0;
  }

  // Returns the offset of the Japanese or the default script, 0 if there is neither. GDI looks for the
  // default script as "dflt", so it doesn't find the "DFLT" of fonts.
  size_t FindScript() const {
    const size_t scripts = WordAt(4);
    const size_t count = WordAt(scripts);
    size_t script = 0;
    for (size_t i = 0; i < count; ++i) {
      const size_t record = scripts + 2 + 6 * i;
      if (HasTag(record, "kana")) return scripts + WordAt(record + tagLength);
      if (HasTag(record, "dflt")) script = scripts + WordAt(record + tagLength);
    }
    return script;
  }

  // Returns the offset of the vertical feature of the script's default language, 0 if there is none.
  size_t FindFeature() const {
    const size_t script = FindScript();
    if (script == 0 || WordAt(script) == 0) return 0;
    const size_t language = script + WordAt(script);
    const size_t features = WordAt(6);
    const size_t count = WordAt(language + 4);
    for (const char* tag : {"vrt2", "vert"}) {
      for (size_t i = 0; i < count; ++i) {
        const size_t record = features + 2 + 6 * WordAt(language + 6 + 2 * i);
        if (HasTag(record, tag)) return features + WordAt(record + tagLength);
      }
    }
    return 0;
  }

  void AddLookup(size_t lookup) {
    constexpr size_t singleSubstitution = 1;
    if (WordAt(lookup) != singleSubstitution) return;
    const size_t count = WordAt(lookup + 4);
    for (size_t i = 0; i < count && ++steps < mostSteps; ++i)
      AddSubstitution(lookup + WordAt(lookup + 6 + 2 * i));
  }

  // The glyphs of a substitution are a list (format 1) or ranges (format 2).
  void AddSubstitution(size_t subtable) {
    const size_t coverage = subtable + WordAt(subtable + 2);
    const size_t count = WordAt(coverage + 2);
    for (size_t i = 0; i < count && ++steps < mostSteps; ++i) {
      if (WordAt(coverage) == 1)
        AddGlyph(subtable, i, WordAt(coverage + 4 + 2 * i));
      else
        AddRange(subtable, coverage + 4 + 6 * i);
    }
  }

  void AddRange(size_t subtable, size_t range) {
    const size_t first = WordAt(range);
    const size_t last = WordAt(range + 2);
    const size_t firstIndex = WordAt(range + 4);
    for (size_t glyph = first; glyph <= last && ++steps < mostSteps; ++glyph)
      AddGlyph(subtable, firstIndex + glyph - first, glyph);
  }

  // Format 1 adds a number to the glyph, format 2 has a list. The first substitution of a glyph wins.
  void AddGlyph(size_t subtable, size_t index, size_t glyph) {
    const size_t operand = WordAt(subtable + 4);
    size_t substitute = glyph;
    if (WordAt(subtable) == 1)
      substitute = (glyph + operand) & 0xFFFF;
    else if (index < operand)
      substitute = WordAt(subtable + 6 + 2 * index);
    glyphs.emplace(static_cast<uint32_t>(glyph), static_cast<uint32_t>(substitute));
  }

  const std::vector<uint8_t>& table;
  std::map<uint32_t, uint32_t>& glyphs;
  size_t steps = 0;
};

}  // namespace

bool StandsUpright(char16_t character) {
  const auto* const range =
      std::lower_bound(std::begin(uprightCharacters), std::end(uprightCharacters), character,
                       [](const UnitRange& before, char16_t sought) { return before.last < sought; });
  return range != std::end(uprightCharacters) && range->first <= character;
}

VerticalGlyphs::VerticalGlyphs(const std::vector<uint8_t>& gsubTable) {
  SubstitutionTable(gsubTable, substitutes).Read();
}

uint32_t VerticalGlyphs::Of(uint32_t glyph) const {
  const auto found = substitutes.find(glyph);
  return found == substitutes.end() ? glyph : found->second;
}

}  // namespace hexlume
