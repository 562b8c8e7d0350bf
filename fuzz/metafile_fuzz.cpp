// The tool's reader of metafiles: the listing, the look for ink, and the player on each kind of picture. The first byte of an
// input chooses the picture, the rest is the metafile.
#include <memory>
#include <ostream>
#include <stdexcept>

#include "fuzz/nowhere.h"
#include "fuzz/target.h"
#include "tools/hexlume/metafile/metafile_listing.h"
#include "tools/hexlume/metafile/metafile_player.h"
#include "tools/hexlume/metafile/sheet_ink.h"
#include "tools/hexlume/picture/pdf_book.h"
#include "tools/hexlume/picture/raster_canvas.h"
#include "tools/hexlume/picture/svg_canvas.h"
#include "tools/hexlume/picture/vector_limits.h"

using namespace hexlume;

namespace {

void Drop(const uint8_t*, size_t) {}

bool List(const uint8_t* bytes, size_t size) {
  Nowhere nowhere;
  std::ostream out(&nowhere);
  return ListMetafile(bytes, size, out);
}

void DrawPixels(const uint8_t* bytes, size_t size, int width, int height) {
  RasterCanvas canvas(width, height);
  PlayMetafile(bytes, size, canvas);
  canvas.Finish();
}

void DrawSvg(const uint8_t* bytes, size_t size, const MetafileFrame& frame, bool keepsTexts) {
  RequirePage(frame);
  const ByteSink sink = Drop;
  SvgCanvas canvas(frame, keepsTexts, sink);
  PlayMetafile(bytes, size, canvas);
  canvas.Finish();
}

void DrawPdf(const uint8_t* bytes, size_t size) {
  PdfBook book(Drop);
  book.AddPage(MetafileBytes(bytes, bytes + size), "title");
  book.Finish();
}

void Draw(uint8_t choice, const uint8_t* bytes, size_t size) {
  MetafileFrame frame;
  if (!ReadMetafileFrame(bytes, size, frame)) return;
  switch (choice % 8) {
    case 0:
    case 1:
    case 2: return DrawPixels(bytes, size, 100, 70);
    case 3: return DrawPixels(bytes, size, 1, 1000);
    case 4: return DrawSvg(bytes, size, frame, true);
    case 5: return DrawSvg(bytes, size, frame, false);
    case 6: return DrawPdf(bytes, size);
    default: return;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
  if (size == 0) return 0;
  List(bytes + 1, size - 1);
  FindInk(bytes + 1, size - 1);
  try {
    Draw(bytes[0], bytes + 1, size - 1);
  } catch (const std::runtime_error&) {  // what can't be drawn
  }
  return 0;
}
