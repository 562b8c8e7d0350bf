// One record of an enhanced metafile in memory. All reads are checked against the size of the record, so
// wrong counts in it do no harm.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <stdexcept>

namespace hexlume {

enum class RecordType : uint32_t {
  header = 1,
  polyBezier = 2,
  polygon = 3,
  eof = 14,
  setPixelV = 15,
  setMapMode = 17,
  setBkMode = 18,
  setPolyFillMode = 19,
  setTextAlign = 22,
  setTextColor = 24,
  moveToEx = 27,
  selectObject = 37,
  createPen = 38,
  createBrushIndirect = 39,
  deleteObject = 40,
  angleArc = 41,
  ellipse = 42,
  arc = 45,
  lineTo = 54,
  setArcDirection = 57,
  gdiComment = 70,
  fillRgn = 71,
  extSelectClipRgn = 75,
  extCreateFontIndirectW = 82,
  extTextOutW = 84,
  polyBezier16 = 85,
  polygon16 = 86,
};

struct MalformedRecord : std::runtime_error {
  MalformedRecord() : std::runtime_error("malformed metafile record") {}
};

class EmfRecord {
 public:
  // Takes the record at the start of the bytes. available may be larger than the record.
  EmfRecord(const uint8_t* start, size_t available) : bytes(start), length(available) {
    const uint32_t claimed = UInt(4);
    if (claimed < 8 || claimed % 4 != 0 || claimed > available) throw MalformedRecord();
    length = claimed;
  }

  RecordType Type() const { return static_cast<RecordType>(UInt(0)); }
  size_t Size() const { return length; }

  uint8_t Byte(size_t offset) const { return Read<uint8_t>(offset); }
  int16_t Short(size_t offset) const { return Read<int16_t>(offset); }
  uint16_t UShort(size_t offset) const { return Read<uint16_t>(offset); }
  int32_t Int(size_t offset) const { return Read<int32_t>(offset); }
  uint32_t UInt(size_t offset) const { return Read<uint32_t>(offset); }
  float Float(size_t offset) const { return Read<float>(offset); }

  // Checks that count items of itemSize bytes, from offset on, are within the record.
  void RequireItems(size_t offset, size_t count, size_t itemSize) const {
    if (offset > length || count > (length - offset) / itemSize) throw MalformedRecord();
  }

 private:
  template <typename T>
  T Read(size_t offset) const {
    RequireItems(offset, 1, sizeof(T));
    T value;
    std::memcpy(&value, bytes + offset, sizeof(T));
    return value;
  }

  const uint8_t* bytes;
  size_t length;
};

}  // namespace hexlume
