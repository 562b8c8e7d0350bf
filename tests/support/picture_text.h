// Pictures as text: what a canvas writes of a metafile made by hand.
#pragma once

#include <string>

#include "support/emf_words.h"
#include "tools/hexlume/metafile/player_path.h"
#include "tools/hexlume/picture/byte_sink.h"

namespace hexlume {

// The records on MM_HIMETRIC, between a header and an end record. The frame is 1000 by 1000.
inline Words SmallMetafile(const Words& records) {
  return SmallHeader() + SetMapModeRecord(3) + records + EndRecord();
}

inline const uint8_t* BytesOf(const Words& words) {
  return reinterpret_cast<const uint8_t*>(words.data());
}

inline ByteSink AppendTo(std::string& text) {
  return
      [&text](const uint8_t* bytes, size_t size) { text.append(reinterpret_cast<const char*>(bytes), size); };
}

// A path as "M 1,2 L 3,4 C 5,6 7,8 9,10 Z ".
inline std::string TextOf(const PlayerPath& path) {
  struct Writer {
    std::string text;
    void Put(Point point) {
      text +=
          std::to_string(static_cast<int>(point.x)) + ',' + std::to_string(static_cast<int>(point.y)) + ' ';
    }
    void MoveTo(Point to) { text += "M ", Put(to); }
    void LineTo(Point to) { text += "L ", Put(to); }
    void CurveTo(Point a, Point b, Point to) { text += "C ", Put(a), Put(b), Put(to); }
    void Close() { text += "Z "; }
  };
  Writer writer;
  path.WriteTo(writer);
  return writer.text;
}

}  // namespace hexlume
