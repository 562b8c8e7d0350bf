// What our own GDI recorded, word by word.
#pragma once

#include "platform/gdi.h"
#include "support/emf_words.h"

#include <cstring>
#include <vector>

namespace hexlume {

constexpr size_t headerWords = 27;
constexpr size_t endWords = 5;

// All words of a metafile, which is given back.
inline Words TakeWords(HENHMETAFILE metafile) {
  std::vector<uint8_t> bytes(GetEnhMetaFileBits(metafile, 0, nullptr));
  GetEnhMetaFileBits(metafile, static_cast<UINT>(bytes.size()), bytes.data());
  DeleteEnhMetaFile(metafile);
  Words words(bytes.size() / sizeof(uint32_t));
  if (!words.empty()) std::memcpy(words.data(), bytes.data(), words.size() * sizeof(uint32_t));
  return words;
}

// The words of what draw(dc) records, in a metafile whose frame comes from its bounds.
template <typename Draw>
Words RecordedWords(Draw draw) {
  const HDC dc = CreateEnhMetaFileA(nullptr, nullptr, nullptr, nullptr);
  draw(dc);
  return TakeWords(CloseEnhMetaFile(dc));
}

// The records between the header and EOF.
inline Words BodyOf(const Words& words) {
  if (words.size() < headerWords + endWords) return {};
  return Words(words.begin() + headerWords, words.end() - endWords);
}

inline Words BoundsOf(const Words& words) {
  return Words(words.begin() + 2, words.begin() + 6);
}
inline Words FrameOf(const Words& words) {
  return Words(words.begin() + 6, words.begin() + 10);
}

}  // namespace hexlume
