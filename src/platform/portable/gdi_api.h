// The part of GDI that the converters call, for systems without GDI: a device context that records an
// enhanced metafile, its objects, regions and font metrics. Each function has its documented meaning for the
// calls that the converters make. Limitations are noted at the declarations.
#pragma once

#include <hexlume_system.h>

#include <cstdint>

using BYTE = uint8_t;
using WORD = uint16_t;
using DWORD = uint32_t;
using COLORREF = uint32_t;  // 0x00BBGGRR
using FLOAT = float;
using LPCSTR = const char*;

struct POINT {
  LONG x;
  LONG y;
};

struct SIZE {
  LONG cx;
  LONG cy;
};

// Handles. All kinds of objects have one base type, like GDI's generic handle.
struct GdiObject;
struct DeviceContext;
using HGDIOBJ = GdiObject*;
using HPEN = GdiObject*;
using HBRUSH = GdiObject*;
using HFONT = GdiObject*;
using HRGN = GdiObject*;
using HDC = DeviceContext*;

constexpr int MM_TEXT = 1;
constexpr int MM_HIMETRIC = 3;

constexpr int AD_COUNTERCLOCKWISE = 1;
constexpr int AD_CLOCKWISE = 2;

constexpr int PS_SOLID = 0;
constexpr int PS_DASH = 1;
constexpr int PS_DOT = 2;
constexpr int PS_DASHDOT = 3;
constexpr int PS_DASHDOTDOT = 4;
constexpr int PS_NULL = 5;

constexpr UINT BS_SOLID = 0;
constexpr UINT BS_NULL = 1;

// Stock objects.
constexpr int WHITE_BRUSH = 0;
constexpr int LTGRAY_BRUSH = 1;
constexpr int GRAY_BRUSH = 2;
constexpr int DKGRAY_BRUSH = 3;
constexpr int BLACK_BRUSH = 4;
constexpr int NULL_BRUSH = 5;
constexpr int WHITE_PEN = 6;
constexpr int BLACK_PEN = 7;
constexpr int NULL_PEN = 8;
constexpr int SYSTEM_FONT = 13;

// Results of GetObjectType.
constexpr DWORD OBJ_PEN = 1;
constexpr DWORD OBJ_BRUSH = 2;
constexpr DWORD OBJ_FONT = 6;
constexpr DWORD OBJ_REGION = 8;

constexpr int ALTERNATE = 1;
constexpr int WINDING = 2;

constexpr int TRANSPARENT = 1;
constexpr int OPAQUE = 2;

constexpr UINT TA_LEFT = 0;
constexpr UINT TA_RIGHT = 2;
constexpr UINT TA_CENTER = 6;
constexpr UINT TA_TOP = 0;
constexpr UINT TA_BOTTOM = 8;
constexpr UINT TA_BASELINE = 24;

constexpr int RGN_AND = 1;
constexpr int RGN_OR = 2;
constexpr int RGN_XOR = 3;
constexpr int RGN_DIFF = 4;
constexpr int RGN_COPY = 5;

// Results of the region calls.
constexpr int RGN_ERROR = 0;
constexpr int NULLREGION = 1;
constexpr int SIMPLEREGION = 2;
constexpr int COMPLEXREGION = 3;

constexpr BYTE ANSI_CHARSET = 0;
constexpr BYTE DEFAULT_CHARSET = 1;
constexpr LONG FW_DONTCARE = 0;
constexpr BYTE SHIFTJIS_CHARSET = 128;
constexpr BYTE OUT_DEFAULT_PRECIS = 0;
constexpr BYTE CLIP_LH_ANGLES = 16;
constexpr BYTE DEFAULT_QUALITY = 0;
constexpr BYTE FIXED_PITCH = 1;
constexpr BYTE FF_MODERN = 48;
constexpr int FW_NORMAL = 400;
constexpr int LF_FACESIZE = 32;

struct LOGFONTA {
  LONG lfHeight;
  LONG lfWidth;
  LONG lfEscapement;
  LONG lfOrientation;
  LONG lfWeight;
  BYTE lfItalic;
  BYTE lfUnderline;
  BYTE lfStrikeOut;
  BYTE lfCharSet;
  BYTE lfOutPrecision;
  BYTE lfClipPrecision;
  BYTE lfQuality;
  BYTE lfPitchAndFamily;
  char lfFaceName[LF_FACESIZE];
};

struct TEXTMETRICA {
  LONG tmHeight;
  LONG tmAscent;
  LONG tmDescent;
  LONG tmInternalLeading;
  LONG tmExternalLeading;
  LONG tmAveCharWidth;
  LONG tmMaxCharWidth;
  LONG tmWeight;
  LONG tmOverhang;
  LONG tmDigitizedAspectX;
  LONG tmDigitizedAspectY;
  BYTE tmFirstChar;
  BYTE tmLastChar;
  BYTE tmDefaultChar;
  BYTE tmBreakChar;
  BYTE tmItalic;
  BYTE tmUnderlined;
  BYTE tmStruckOut;
  BYTE tmPitchAndFamily;
  BYTE tmCharSet;
};

// Metafiles. They are in memory only and have no description: file and description must be NULL.
HDC CreateEnhMetaFileA(HDC reference, LPCSTR file, const RECT* frame, LPCSTR description);
extern "C" HENHMETAFILE CloseEnhMetaFile(HDC dc);  // exported, like the two in hexlume_system.h
BOOL DeleteDC(HDC dc);                             // discards the metafile

// The context.
int SetMapMode(HDC dc, int mode);  // MM_TEXT and MM_HIMETRIC
int SetArcDirection(HDC dc, int direction);
int SetPolyFillMode(HDC dc, int mode);
int SetBkMode(HDC dc, int mode);
COLORREF SetTextColor(HDC dc, COLORREF color);
UINT SetTextAlign(HDC dc, UINT align);
int SetTextCharacterExtra(HDC dc, int extra);
BOOL LPtoDP(HDC dc, POINT* points, int count);

// Objects.
HPEN CreatePen(int style, int width, COLORREF color);
HBRUSH CreateSolidBrush(COLORREF color);
HFONT CreateFontIndirectA(const LOGFONTA* font);
HFONT CreateFontA(int height, int width, int escapement, int orientation, int weight, DWORD italic,
                  DWORD underline, DWORD strikeOut, DWORD charSet, DWORD outPrecision, DWORD clipPrecision,
                  DWORD quality, DWORD pitchAndFamily, LPCSTR face);
HGDIOBJ GetStockObject(int object);
HGDIOBJ SelectObject(HDC dc, HGDIOBJ object);
BOOL DeleteObject(HGDIOBJ object);
DWORD GetObjectType(HGDIOBJ object);

// Strokes and shapes.
BOOL MoveToEx(HDC dc, int x, int y, POINT* previous);
BOOL LineTo(HDC dc, int x, int y);
COLORREF SetPixel(HDC dc, int x, int y, COLORREF color);
BOOL Ellipse(HDC dc, int left, int top, int right, int bottom);
BOOL Arc(HDC dc, int left, int top, int right, int bottom, int xStart, int yStart, int xEnd, int yEnd);
BOOL AngleArc(HDC dc, int x, int y, DWORD radius, FLOAT startAngle, FLOAT sweep);
BOOL PolyBezier(HDC dc, const POINT* points, DWORD count);
BOOL Polygon(HDC dc, const POINT* points, int count);

// Text in code page 932.
BOOL GetTextMetricsA(HDC dc, TEXTMETRICA* metrics);
BOOL TextOutA(HDC dc, int x, int y, LPCSTR text, int length);

// Regions, in device units.
HRGN CreatePolygonRgn(const POINT* points, int count, int fillMode);
HRGN CreateEllipticRgn(int left, int top, int right, int bottom);
HRGN CreateRectRgn(int left, int top, int right, int bottom);
int CombineRgn(HRGN destination, HRGN first, HRGN second, int mode);
int GetRgnBox(HRGN region, RECT* box);
BOOL FillRgn(HDC dc, HRGN region, HBRUSH brush);
int ExtSelectClipRgn(HDC dc, HRGN region, int mode);
