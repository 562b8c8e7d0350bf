// The calls inside an enhanced metafile as text, one a line: for a user who wants to look into a metafile,
// and for tests that compare two. The same metafile gives the same text on every system.
//
//   Frame(left, top, right, bottom)
//       the header's frame in hundredths of a millimetre, always the first line
//   LineTo(x, y)
//       a call as it was recorded: decimal numbers, constants by name, colours as 0xBBGGRR, objects by their
//       index in the metafile, stock objects by name
//   Polygon(x, y, ...)
//       the 16-bit and the 32-bit form of a record give the same line
//   ExtTextOutW(x, y, options, "text")
//       UTF-8, with a backslash before " and backslash, and \uXXXX for control characters and lone surrogates
//   FillRgn(brush, left, top, right, bottom, count, bands ...)
//   ExtSelectClipRgn(mode, left, top, right, bottom, count, bands ...)
//       the region's bounds, the number of its rectangles, then these, "top..bottom:left..right", with a
//       further "left..right" behind a blank for each that stands in the same band
//   GdiComment(size)
//       the size of the comment's data in bytes
//   Record(type, size)
//       any other record, or one whose contents don't fit its size
#pragma once

#include <cstddef>
#include <cstdint>
#include <ostream>

namespace hexlume {

// Lists the metafile in bytes (what GetEnhMetaFileBits gives). False if it is malformed: no metafile's
// header, a record that doesn't fit, or no end record. What could be read is listed in any case.
bool ListMetafile(const uint8_t* bytes, size_t size, std::ostream& out);

}  // namespace hexlume
