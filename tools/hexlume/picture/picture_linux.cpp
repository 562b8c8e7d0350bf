#include "tools/hexlume/metafile/metafile_player.h"
#include "tools/hexlume/picture/pdf_book.h"
#include "tools/hexlume/picture/picture_book.h"
#include "tools/hexlume/picture/picture_work.h"
#include "tools/hexlume/picture/picture_writers.h"
#include "tools/hexlume/picture/png_file.h"
#include "tools/hexlume/picture/raster_canvas.h"
#include "tools/hexlume/picture/svg_canvas.h"
#include "tools/hexlume/picture/vector_limits.h"

namespace hexlume {
namespace {

MetafileFrame FrameOf(const MetafileBytes& metafile) {
  MetafileFrame frame;
  if (!ReadMetafileFrame(metafile.data(), metafile.size(), frame)) {
    throw PictureError("the metafile has no header");
  }
  return frame;
}

void Play(const MetafileBytes& metafile, PlayerCanvas& canvas) {
  if (!PlayMetafile(metafile.data(), metafile.size(), canvas))
    throw PictureError("the metafile is malformed");
}

}  // namespace

void WritePngPicture(const MetafileBytes& metafile, const PictureSettings& settings, const ByteSink& sink) {
  const MetafileFrame frame = FrameOf(metafile);
  const PixelSize size = PictureSize(frame.left, frame.top, frame.right, frame.bottom, settings);
  RasterCanvas canvas(size.width, size.height,
                      PictureWork(metafile.DrawingBytes(), DotScale(size.dotsPerMetre)));
  Play(metafile, canvas);
  WritePng(canvas.Finish(), size.dotsPerMetre, sink);
}

void WriteSvgPicture(const MetafileBytes& metafile, const PictureSettings& settings, const ByteSink& sink) {
  const MetafileFrame frame = FrameOf(metafile);
  RequirePage(frame);
  SvgCanvas canvas(frame, settings.keepsTexts, sink, PictureWork(metafile.DrawingBytes()));
  Play(metafile, canvas);
  canvas.Finish();
}

void WritePdfPicture(const MetafileBytes& metafile, const PictureSettings&, const ByteSink& sink) {
  PdfBook book(sink);
  book.AddPage(metafile, "");
  book.Finish();
}

void CheckPage(const MetafileBytes& metafile) {
  RequirePage(FrameOf(metafile));
}

std::unique_ptr<PictureBook> MakePictureBook(const ByteSink& sink) {
  return std::make_unique<PdfBook>(sink);
}

}  // namespace hexlume
