// Metafiles made by hand in a test, word by word.
#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

namespace hexlume {

using Words = std::vector<uint32_t>;

inline Words operator+(const Words& a, const Words& b) {
  Words sum = a;
  sum.insert(sum.end(), b.begin(), b.end());
  return sum;
}

// A record is its type, its size in bytes and its contents.
inline Words Record(uint32_t type, const Words& contents) {
  return Words{type, static_cast<uint32_t>(8 + 4 * contents.size())} + contents;
}

// A frame of 10 by 10 mm, recorded for a device of 10 pixels to a millimetre.
inline Words SmallHeader() {
  Words contents(25, 0);
  contents[6] = contents[7] = 1000;
  contents[8] = 0x464D4520;
  contents[16] = contents[17] = 1000;
  contents[18] = contents[19] = 100;
  return Record(1, contents);
}

inline Words EndRecord() {
  return Record(14, {0, 0, 20});
}

inline uint32_t Word(float value) {
  uint32_t bits;
  std::memcpy(&bits, &value, sizeof bits);
  return bits;
}

inline uint32_t Word(int32_t value) {
  return static_cast<uint32_t>(value);
}

inline uint32_t Pair(int32_t first, int32_t second) {
  return static_cast<uint16_t>(first) | static_cast<uint32_t>(static_cast<uint16_t>(second)) << 16;
}

inline Words Ints(const std::vector<int32_t>& numbers) {
  return Words(numbers.begin(), numbers.end());
}

// The records that a test needs, under the names of their calls.

inline Words SetMapModeRecord(uint32_t mode) {
  return Record(17, {mode});
}

inline Words MoveToRecord(int32_t x, int32_t y) {
  return Record(27, Ints({x, y}));
}

inline Words LineToRecord(int32_t x, int32_t y) {
  return Record(54, Ints({x, y}));
}

inline Words LineRecords(int32_t x1, int32_t y1, int32_t x2, int32_t y2) {
  return MoveToRecord(x1, y1) + LineToRecord(x2, y2);
}

inline Words SelectRecord(uint32_t object) {
  return Record(37, {object});
}

inline Words PenRecords(uint32_t index, uint32_t style, int32_t width, uint32_t color) {
  return Record(38, {index, style, Word(width), 0, color}) + SelectRecord(index);
}

inline Words BrushRecords(uint32_t index, uint32_t color) {
  return Record(39, {index, 0, color, 0}) + SelectRecord(index);
}

inline Words AngleArcRecord(int32_t x, int32_t y, uint32_t radius, float start, float sweep) {
  return Record(41, Ints({x, y}) + Words{radius, Word(start), Word(sweep)});
}

inline Words PointsRecord(uint32_t type, const std::vector<int32_t>& coordinates) {
  return Record(type, Words{0, 0, 0, 0, static_cast<uint32_t>(coordinates.size() / 2)} + Ints(coordinates));
}

inline Words Points16Record(uint32_t type, const std::vector<int32_t>& coordinates) {
  Words contents{0, 0, 0, 0, static_cast<uint32_t>(coordinates.size() / 2)};
  for (size_t i = 0; i + 1 < coordinates.size(); i += 2) {
    contents.push_back(Pair(coordinates[i], coordinates[i + 1]));
  }
  return Record(type, contents);
}

// A region of rectangles, four numbers each.
inline Words RegionWords(const std::vector<int32_t>& edges) {
  const auto size = static_cast<uint32_t>(4 * edges.size());
  return Words{32, 1, size / 16, size, 0, 0, 0, 0} + Ints(edges);
}

inline Words FillRegionRecord(uint32_t brush, const std::vector<int32_t>& edges) {
  const Words region = RegionWords(edges);
  return Record(71, Words{0, 0, 0, 0, static_cast<uint32_t>(4 * region.size()), brush} + region);
}

inline Words ClipRecord(uint32_t mode, const std::vector<int32_t>& edges) {
  const Words region = RegionWords(edges);
  return Record(75, Words{static_cast<uint32_t>(4 * region.size()), mode} + region);
}

inline Words NoClipRecord() {
  return Record(75, {0, 5});
}

struct FontNumbers {
  int32_t height = 200, width = 0, escapement = 0, weight = 400;
  uint8_t italic = 0, underline = 0, strikeOut = 0;
};

// A Japanese font without a face's name.
inline Words FontRecords(uint32_t index, const FontNumbers& font) {
  constexpr uint32_t shiftJis = 128;
  const uint32_t flags = font.italic | font.underline << 8 | font.strikeOut << 16 | shiftJis << 24;
  return Record(82, Words{index} + Ints({font.height, font.width, font.escapement, 0, font.weight}) +
                        Words{flags, 0} + Words(16, 0)) +
         SelectRecord(index);
}

// A text; with advances, if they are given, one for each unit.
inline Words TextRecord(int32_t x, int32_t y, const std::u16string& text,
                        const std::vector<int32_t>& advances = {}) {
  constexpr uint32_t textOffset = 76;
  Words units;
  for (size_t i = 0; i < text.size(); i += 2)
    units.push_back(Pair(text[i], i + 1 < text.size() ? text[i + 1] : 0));
  const auto advancesOffset = static_cast<uint32_t>(textOffset + 4 * units.size());
  return Record(84, Words{0, 0, 0, 0, 1, 0, 0} + Ints({x, y}) +
                        Words{static_cast<uint32_t>(text.size()), textOffset, 0, 0, 0, 0, 0,
                              advances.empty() ? 0 : advancesOffset} +
                        units + Ints(advances));
}

}  // namespace hexlume
