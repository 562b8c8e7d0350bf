// The records of an enhanced metafile as in the file, little-endian.
#pragma once

#include <cstdint>

#include "platform/gdi.h"

namespace hexlume {

enum EmfType : uint32_t {
  emrHeader = 1,
  emrPolyBezier = 2,
  emrPolygon = 3,
  emrEof = 14,
  emrSetPixelV = 15,
  emrSetMapMode = 17,
  emrSetBkMode = 18,
  emrSetPolyFillMode = 19,
  emrSetTextAlign = 22,
  emrSetTextColor = 24,
  emrMoveToEx = 27,
  emrSelectObject = 37,
  emrCreatePen = 38,
  emrCreateBrushIndirect = 39,
  emrDeleteObject = 40,
  emrAngleArc = 41,
  emrEllipse = 42,
  emrArc = 45,
  emrLineTo = 54,
  emrSetArcDirection = 57,
  emrFillRgn = 71,
  emrExtSelectClipRgn = 75,
  emrExtCreateFontIndirectW = 82,
  emrExtTextOutA = 83,
  emrExtTextOutW = 84,
  emrPolyBezier16 = 85,
  emrPolygon16 = 86,
};

constexpr uint32_t emfSignature = 0x464D4520;  // " EMF"
constexpr uint32_t emfVersion = 0x00010000;
constexpr uint32_t stockObjectFlag = 0x80000000;

struct EmfHeaderRecord {
  uint32_t type;
  uint32_t size;
  RECT bounds;  // device units, inclusive
  RECT frame;   // hundredths of a millimetre
  uint32_t signature;
  uint32_t version;
  uint32_t byteCount;
  uint32_t recordCount;
  uint16_t handleCount;
  uint16_t reserved;
  uint32_t descriptionLength;
  uint32_t descriptionOffset;
  uint32_t paletteCount;
  SIZE devicePixels;
  SIZE deviceMillimetres;
  uint32_t pixelFormatSize;
  uint32_t pixelFormatOffset;
  uint32_t hasOpenGl;
  SIZE deviceMicrometres;
};
static_assert(sizeof(EmfHeaderRecord) == 108);

struct EmfEofRecord {
  uint32_t type;
  uint32_t size;
  uint32_t paletteCount;
  uint32_t paletteOffset;
  uint32_t sizeAgain;
};

// For SETMAPMODE, SETBKMODE, SETPOLYFILLMODE, SETTEXTALIGN, SETARCDIRECTION and SETTEXTCOLOR.
struct EmfModeRecord {
  uint32_t type;
  uint32_t size;
  uint32_t mode;
};

// For SELECTOBJECT and DELETEOBJECT.
struct EmfObjectRecord {
  uint32_t type;
  uint32_t size;
  uint32_t index;
};

struct EmfCreatePenRecord {
  uint32_t type;
  uint32_t size;
  uint32_t index;
  uint32_t style;
  POINT width;  // y unused
  COLORREF color;
};

struct EmfCreateBrushRecord {
  uint32_t type;
  uint32_t size;
  uint32_t index;
  uint32_t style;
  COLORREF color;
  uint32_t hatch;
};

// For MOVETOEX and LINETO.
struct EmfPointRecord {
  uint32_t type;
  uint32_t size;
  POINT point;
};

struct EmfSetPixelRecord {
  uint32_t type;
  uint32_t size;
  POINT point;
  COLORREF color;
};

struct EmfEllipseRecord {
  uint32_t type;
  uint32_t size;
  RECT box;
};

struct EmfArcRecord {
  uint32_t type;
  uint32_t size;
  RECT box;
  POINT start;
  POINT end;
};

struct EmfAngleArcRecord {
  uint32_t type;
  uint32_t size;
  POINT centre;
  uint32_t radius;
  float startAngle;
  float sweep;
};

// For POLYBEZIER, POLYGON and their 16-bit forms. The points follow.
struct EmfPolyRecord {
  uint32_t type;
  uint32_t size;
  RECT bounds;
  uint32_t count;
};

struct EmfPoint16 {
  int16_t x;
  int16_t y;
};

}  // namespace hexlume
