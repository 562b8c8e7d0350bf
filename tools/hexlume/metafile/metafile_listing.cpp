#include "tools/hexlume/metafile/metafile_listing.h"

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <string>

#include "tools/hexlume/metafile/emf_record.h"
#include "tools/hexlume/metafile/emf_region.h"
#include "tools/hexlume/metafile/utf16.h"

namespace hexlume {
namespace {

// Collects the arguments of one line.
class Arguments {
 public:
  void AddText(const std::string& argument) {
    if (!text.empty()) text += ", ";
    text += argument;
  }
  void Add(int64_t value) { AddText(std::to_string(value)); }
  const std::string& Text() const { return text; }

 private:
  std::string text;
};

template <typename... Values>
std::string Format(const char* format, Values... values) {
  char buffer[64];
  std::snprintf(buffer, sizeof buffer, format, values...);
  return buffer;
}

struct Name {
  uint32_t value;
  const char* name;
};

template <size_t count>
std::string NameOf(const Name (&names)[count], uint32_t value) {
  const auto found = std::find_if(std::begin(names), std::end(names),
                                  [value](const Name& row) { return row.value == value; });
  return found == std::end(names) ? std::to_string(value) : found->name;
}

constexpr Name mapModes[] = {
    {1, "MM_TEXT"},      {2, "MM_LOMETRIC"}, {3, "MM_HIMETRIC"},  {4, "MM_LOENGLISH"},
    {5, "MM_HIENGLISH"}, {6, "MM_TWIPS"},    {7, "MM_ISOTROPIC"}, {8, "MM_ANISOTROPIC"},
};
constexpr Name bkModes[] = {{1, "TRANSPARENT"}, {2, "OPAQUE"}};
constexpr Name polyFillModes[] = {{1, "ALTERNATE"}, {2, "WINDING"}};
constexpr Name arcDirections[] = {{1, "AD_COUNTERCLOCKWISE"}, {2, "AD_CLOCKWISE"}};
constexpr Name regionModes[] = {
    {1, "RGN_AND"}, {2, "RGN_OR"}, {3, "RGN_XOR"}, {4, "RGN_DIFF"}, {5, "RGN_COPY"},
};
constexpr Name penStyles[] = {
    {0, "PS_SOLID"},      {1, "PS_DASH"}, {2, "PS_DOT"},         {3, "PS_DASHDOT"},
    {4, "PS_DASHDOTDOT"}, {5, "PS_NULL"}, {6, "PS_INSIDEFRAME"},
};
constexpr Name brushStyles[] = {
    {0, "BS_SOLID"},        {1, "BS_NULL"},       {2, "BS_HATCHED"},
    {3, "BS_PATTERN"},      {4, "BS_INDEXED"},    {5, "BS_DIBPATTERN"},
    {6, "BS_DIBPATTERNPT"}, {7, "BS_PATTERN8X8"}, {8, "BS_DIBPATTERN8X8"},
};
constexpr Name stockObjects[] = {
    {0x80000000, "WHITE_BRUSH"},      {0x80000001, "LTGRAY_BRUSH"},
    {0x80000002, "GRAY_BRUSH"},       {0x80000003, "DKGRAY_BRUSH"},
    {0x80000004, "BLACK_BRUSH"},      {0x80000005, "NULL_BRUSH"},
    {0x80000006, "WHITE_PEN"},        {0x80000007, "BLACK_PEN"},
    {0x80000008, "NULL_PEN"},         {0x8000000A, "OEM_FIXED_FONT"},
    {0x8000000B, "ANSI_FIXED_FONT"},  {0x8000000C, "ANSI_VAR_FONT"},
    {0x8000000D, "SYSTEM_FONT"},      {0x8000000E, "DEVICE_DEFAULT_FONT"},
    {0x8000000F, "DEFAULT_PALETTE"},  {0x80000010, "SYSTEM_FIXED_FONT"},
    {0x80000011, "DEFAULT_GUI_FONT"}, {0x80000012, "DC_BRUSH"},
    {0x80000013, "DC_PEN"},
};

std::string Color(uint32_t color) {
  return Format("0x%06X", static_cast<unsigned>(color));
}

// Strings.

void AppendUnit(std::string& text, uint32_t unit) {
  if (unit == '"' || unit == '\\') text += '\\';
  const bool control = unit < 0x20 || (unit >= 0x7F && unit < 0xA0);
  if (control || IsHighSurrogate(unit) || IsLowSurrogate(unit)) {
    text += Format("\\u%04X", static_cast<unsigned>(unit));
  } else {
    AppendUtf8(text, unit);
  }
}

std::string Quoted(const EmfRecord& record, size_t offset, size_t count) {
  record.RequireItems(offset, count, 2);
  std::string text = "\"";
  for (size_t i = 0; i < count; ++i) {
    const uint32_t unit = record.UShort(offset + 2 * i);
    const uint32_t next = i + 1 < count ? record.UShort(offset + 2 * (i + 1)) : 0;
    if (IsHighSurrogate(unit) && IsLowSurrogate(next)) {
      AppendUtf8(text, JoinSurrogates(unit, next));
      ++i;
    } else {
      AppendUnit(text, unit);
    }
  }
  return text + '"';
}

// Contents that several kinds of records have in common.

void AddInts(const EmfRecord& record, Arguments& arguments, size_t offset, size_t count) {
  record.RequireItems(offset, count, 4);
  for (size_t i = 0; i < count; ++i) arguments.Add(record.Int(offset + 4 * i));
}

void ListPoint(const EmfRecord& record, Arguments& arguments) {
  AddInts(record, arguments, 8, 2);
}

void ListPoints(const EmfRecord& record, Arguments& arguments) {
  const size_t count = record.UInt(24);
  record.RequireItems(28, count, 8);
  AddInts(record, arguments, 28, 2 * count);
}

void ListPoints16(const EmfRecord& record, Arguments& arguments) {
  const size_t count = record.UInt(24);
  record.RequireItems(28, count, 4);
  for (size_t i = 0; i < 2 * count; ++i) arguments.Add(record.Short(28 + 2 * i));
}

std::string Range(int32_t from, int32_t to) {
  return std::to_string(from) + ".." + std::to_string(to);
}

void AddBands(const std::vector<EmfRectangle>& rectangles, Arguments& arguments) {
  for (size_t i = 0; i < rectangles.size();) {
    const EmfRectangle first = rectangles[i];
    std::string band = Range(first.top, first.bottom) + ":" + Range(first.left, first.right);
    for (++i; i < rectangles.size(); ++i) {
      const EmfRectangle& next = rectangles[i];
      if (next.top != first.top || next.bottom != first.bottom) break;
      band += " " + Range(next.left, next.right);
    }
    arguments.AddText(band);
  }
}

void AddRegion(const EmfRecord& record, Arguments& arguments, size_t offset, size_t size) {
  constexpr size_t bounds = 16;
  const std::vector<EmfRectangle> rectangles = EmfRegionAt(record, offset, size);
  AddInts(record, arguments, offset + bounds, 4);
  arguments.Add(static_cast<int64_t>(rectangles.size()));
  AddBands(rectangles, arguments);
}

// The kinds of records, in the order of the table below.

void ListSetPixelV(const EmfRecord& record, Arguments& arguments) {
  ListPoint(record, arguments);
  arguments.AddText(Color(record.UInt(16)));
}

void ListSetMapMode(const EmfRecord& record, Arguments& arguments) {
  arguments.AddText(NameOf(mapModes, record.UInt(8)));
}

void ListSetBkMode(const EmfRecord& record, Arguments& arguments) {
  arguments.AddText(NameOf(bkModes, record.UInt(8)));
}

void ListSetPolyFillMode(const EmfRecord& record, Arguments& arguments) {
  arguments.AddText(NameOf(polyFillModes, record.UInt(8)));
}

void ListSetTextAlign(const EmfRecord& record, Arguments& arguments) {
  arguments.Add(record.UInt(8));
}

void ListSetTextColor(const EmfRecord& record, Arguments& arguments) {
  arguments.AddText(Color(record.UInt(8)));
}

void ListObject(const EmfRecord& record, Arguments& arguments) {
  arguments.AddText(NameOf(stockObjects, record.UInt(8)));
}

void ListCreatePen(const EmfRecord& record, Arguments& arguments) {
  arguments.Add(record.UInt(8));
  arguments.AddText(NameOf(penStyles, record.UInt(12)));
  arguments.Add(record.Int(16));
  arguments.AddText(Color(record.UInt(24)));
}

void ListCreateBrushIndirect(const EmfRecord& record, Arguments& arguments) {
  arguments.Add(record.UInt(8));
  arguments.AddText(NameOf(brushStyles, record.UInt(12)));
  arguments.AddText(Color(record.UInt(16)));
  arguments.Add(record.UInt(20));
}

void ListAngleArc(const EmfRecord& record, Arguments& arguments) {
  ListPoint(record, arguments);
  arguments.Add(record.UInt(16));
  arguments.AddText(Format("%.9g", static_cast<double>(record.Float(20))));
  arguments.AddText(Format("%.9g", static_cast<double>(record.Float(24))));
}

void ListEllipse(const EmfRecord& record, Arguments& arguments) {
  AddInts(record, arguments, 8, 4);
}

void ListArc(const EmfRecord& record, Arguments& arguments) {
  AddInts(record, arguments, 8, 8);
}

void ListSetArcDirection(const EmfRecord& record, Arguments& arguments) {
  arguments.AddText(NameOf(arcDirections, record.UInt(8)));
}

void ListGdiComment(const EmfRecord& record, Arguments& arguments) {
  const uint32_t size = record.UInt(8);
  record.RequireItems(12, size, 1);
  arguments.Add(size);
}

void ListFillRgn(const EmfRecord& record, Arguments& arguments) {
  arguments.Add(record.UInt(28));
  AddRegion(record, arguments, 32, record.UInt(24));
}

void ListExtSelectClipRgn(const EmfRecord& record, Arguments& arguments) {
  arguments.AddText(NameOf(regionModes, record.UInt(12)));
  const uint32_t size = record.UInt(8);
  if (size != 0) AddRegion(record, arguments, 16, size);
}

void ListExtCreateFontIndirectW(const EmfRecord& record, Arguments& arguments) {
  constexpr size_t numbers = 12, flags = 32, face = 40, faceUnits = 32;
  record.RequireItems(face, faceUnits, 2);
  arguments.Add(record.UInt(8));
  AddInts(record, arguments, numbers, 5);
  for (size_t i = flags; i < face; ++i) arguments.Add(record.Byte(i));
  size_t length = 0;
  while (length < faceUnits && record.UShort(face + 2 * length) != 0) ++length;
  arguments.AddText(Quoted(record, face, length));
}

void ListExtTextOutW(const EmfRecord& record, Arguments& arguments) {
  AddInts(record, arguments, 36, 2);
  arguments.Add(record.UInt(52));
  arguments.AddText(Quoted(record, record.UInt(48), record.UInt(44)));
}

struct Call {
  RecordType type;
  const char* name;
  void (*list)(const EmfRecord& record, Arguments& arguments);
};

constexpr Call calls[] = {
    {RecordType::polyBezier, "PolyBezier", ListPoints},
    {RecordType::polygon, "Polygon", ListPoints},
    {RecordType::setPixelV, "SetPixelV", ListSetPixelV},
    {RecordType::setMapMode, "SetMapMode", ListSetMapMode},
    {RecordType::setBkMode, "SetBkMode", ListSetBkMode},
    {RecordType::setPolyFillMode, "SetPolyFillMode", ListSetPolyFillMode},
    {RecordType::setTextAlign, "SetTextAlign", ListSetTextAlign},
    {RecordType::setTextColor, "SetTextColor", ListSetTextColor},
    {RecordType::moveToEx, "MoveToEx", ListPoint},
    {RecordType::selectObject, "SelectObject", ListObject},
    {RecordType::createPen, "CreatePen", ListCreatePen},
    {RecordType::createBrushIndirect, "CreateBrushIndirect", ListCreateBrushIndirect},
    {RecordType::deleteObject, "DeleteObject", ListObject},
    {RecordType::angleArc, "AngleArc", ListAngleArc},
    {RecordType::ellipse, "Ellipse", ListEllipse},
    {RecordType::arc, "Arc", ListArc},
    {RecordType::lineTo, "LineTo", ListPoint},
    {RecordType::setArcDirection, "SetArcDirection", ListSetArcDirection},
    {RecordType::gdiComment, "GdiComment", ListGdiComment},
    {RecordType::fillRgn, "FillRgn", ListFillRgn},
    {RecordType::extSelectClipRgn, "ExtSelectClipRgn", ListExtSelectClipRgn},
    {RecordType::extCreateFontIndirectW, "CreateFont", ListExtCreateFontIndirectW},
    {RecordType::extTextOutW, "ExtTextOutW", ListExtTextOutW},
    {RecordType::polyBezier16, "PolyBezier", ListPoints16},
    {RecordType::polygon16, "Polygon", ListPoints16},
};

void WriteLine(std::ostream& out, const char* name, const Arguments& arguments) {
  out << name << '(' << arguments.Text() << ")\n";
}

void ListUnknown(const EmfRecord& record, std::ostream& out) {
  Arguments arguments;
  arguments.Add(static_cast<uint32_t>(record.Type()));
  arguments.Add(static_cast<int64_t>(record.Size()));
  WriteLine(out, "Record", arguments);
}

// Returns false if the record's contents don't fit its size.
bool ListRecord(const EmfRecord& record, std::ostream& out) {
  const auto call = std::find_if(std::begin(calls), std::end(calls),
                                 [&record](const Call& row) { return row.type == record.Type(); });
  if (call == std::end(calls)) {
    ListUnknown(record, out);
    return true;
  }
  try {
    Arguments arguments;
    call->list(record, arguments);
    WriteLine(out, call->name, arguments);
    return true;
  } catch (const MalformedRecord&) {
    ListUnknown(record, out);
    return false;
  }
}

void ListHeader(const EmfRecord& record, std::ostream& out) {
  constexpr uint32_t signature = 0x464D4520;
  constexpr size_t shortestHeader = 88;
  if (record.Type() != RecordType::header || record.Size() < shortestHeader || record.UInt(40) != signature) {
    throw MalformedRecord();
  }
  Arguments arguments;
  AddInts(record, arguments, 24, 4);
  WriteLine(out, "Frame", arguments);
}

}  // namespace

bool ListMetafile(const uint8_t* bytes, size_t size, std::ostream& out) {
  try {
    const EmfRecord header(bytes, size);
    ListHeader(header, out);
    bool sound = true;
    for (size_t offset = header.Size();;) {
      const EmfRecord record(bytes + offset, size - offset);
      if (record.Type() == RecordType::eof) return sound;
      if (!ListRecord(record, out)) sound = false;
      offset += record.Size();
    }
  } catch (const MalformedRecord&) {
    return false;
  }
}

}  // namespace hexlume
