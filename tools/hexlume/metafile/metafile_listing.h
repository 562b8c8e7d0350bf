// Lists the calls in an enhanced metafile as text, one per line: for users who inspect a metafile, and for
// tests that compare two. The same metafile gives the same text on every system.
//
//   Frame(left, top, right, bottom)
//       the frame in the header, in hundredths of a millimetre; always the first line
//   LineTo(x, y)
//       a recorded call: numbers in decimal, constants by name, colours as 0xBBGGRR, objects by their index
//       in the metafile, stock objects by name
//   Polygon(x, y, ...)
//       the same for the 16-bit and the 32-bit form of a record
//   ExtTextOutW(x, y, options, "text")
//       UTF-8, with a backslash before " and backslash, and \uXXXX for control characters and lone surrogates
//   FillRgn(brush, left, top, right, bottom, count, bands ...)
//   ExtSelectClipRgn(mode, left, top, right, bottom, count, bands ...)
//       the region's bounds, the number of its rectangles, and the rectangles as "top..bottom:left..right",
//       followed by " left..right" for each further rectangle in the same band
//   GdiComment(size)
//       the size of the comment's data in bytes
//   Record(type, size)
//       any other record, and any record whose contents don't fit its size
#pragma once

#include <cstddef>
#include <cstdint>
#include <ostream>

namespace hexlume {

// Lists a metafile, given as the bytes that GetEnhMetaFileBits returns. Returns false if it is malformed:
// without a header or an end record, or with a record that doesn't fit. Everything before that is listed.
bool ListMetafile(const uint8_t* bytes, size_t size, std::ostream& out);

}  // namespace hexlume
