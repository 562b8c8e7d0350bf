// Opens, closes and discards metafiles.
#include <cstring>
#include <memory>
#include <new>
#include <utility>

#include "platform/fault_guard.h"
#include "platform/portable/device_context.h"
#include "platform/portable/metafile_stream.h"

namespace hexlume {

namespace {

MetafileStream* nextStream = nullptr;

EmfHeaderRecord HeaderOf(const DeviceContext& dc) {
  EmfHeaderRecord header = {};
  header.type = emrHeader;
  header.size = sizeof header;
  header.bounds = dc.bounds;
  header.frame = dc.frame;
  header.signature = emfSignature;
  header.version = emfVersion;
  header.handleCount = static_cast<uint16_t>(dc.handles.HandleCount());
  header.devicePixels = referenceDevice.pixels;
  header.deviceMillimetres = referenceDevice.millimetres;
  header.deviceMicrometres = referenceDevice.micrometres;
  return header;
}

// Converts a device coordinate to hundredths of a millimetre. The product wraps around, as in GDI.
LONG FrameSide(LONG device, LONG pixels, LONG millimetres) {
  const uint32_t product = static_cast<uint32_t>(device) * static_cast<uint32_t>(millimetres * 100);
  return static_cast<LONG>(product) / pixels;
}

RECT FrameOfBounds(const RECT& bounds) {
  const SIZE pixels = referenceDevice.pixels;
  const SIZE millimetres = referenceDevice.millimetres;
  return {FrameSide(bounds.left, pixels.cx, millimetres.cx), FrameSide(bounds.top, pixels.cy, millimetres.cy),
          FrameSide(bounds.right, pixels.cx, millimetres.cx),
          FrameSide(bounds.bottom, pixels.cy, millimetres.cy)};
}

void TakeOutOfList(HDC dc) {
  DeviceContext** link = &newestContext;
  while (*link != dc) link = &(*link)->older;
  *link = dc->older;
}

std::unique_ptr<DeviceContext> NewContext(const RECT* frame) {
  auto dc = std::make_unique<DeviceContext>();
  dc->metafile = std::make_unique<HENHMETAFILE__>();
  dc->frame = frame ? *frame : emptyBounds;
  dc->writer.Append(HeaderOf(*dc));
  dc->pen = GetStockObject(BLACK_PEN);
  dc->brush = GetStockObject(WHITE_BRUSH);
  dc->font = GetStockObject(SYSTEM_FONT);
  for (const HGDIOBJ object : {dc->pen, dc->brush, dc->font}) ++object->selectedIn;
  return dc;
}

}  // namespace

}  // namespace hexlume

using namespace hexlume;

HDC CreateEnhMetaFileA(HDC reference, LPCSTR file, const RECT* frame, LPCSTR description) {
  if (reference || file || description) return nullptr;
  try {
    std::unique_ptr<DeviceContext> dc = NewContext(frame);
    dc->writer.StreamTo(std::exchange(nextStream, nullptr));
    dc->older = newestContext;
    return newestContext = dc.release();
  } catch (const std::bad_alloc&) {
    memoryRanOut = true;
    return nullptr;
  }
}

HENHMETAFILE CloseEnhMetaFile(HDC dc) {
  if (!IsOpen(dc)) return nullptr;
  TakeOutOfList(dc);
  const std::unique_ptr<DeviceContext> closed(dc);
  LeaveObjects(*dc);
  SettleBounds(*dc);
  if (dc->frame.right < dc->frame.left) dc->frame = FrameOfBounds(dc->bounds);
  dc->metafile->bytes = dc->writer.Finish(HeaderOf(*dc));
  return dc->metafile.release();
}

BOOL DeleteDC(HDC dc) {
  if (!IsOpen(dc)) return 0;
  TakeOutOfList(dc);
  const std::unique_ptr<DeviceContext> closed(dc);
  LeaveObjects(*dc);
  return 1;
}

extern "C" UINT GetEnhMetaFileBits(HENHMETAFILE metafile, UINT size, uint8_t* buffer) {
  if (!metafile) return 0;
  const UINT needed = static_cast<UINT>(metafile->bytes.size);
  if (!buffer) return needed;
  if (size < needed || !metafile->bytes.block.Start()) return 0;
  std::memcpy(buffer, metafile->bytes.block.Start(), needed);
  return needed;
}

extern "C" const uint8_t* EnhMetaFileBytes(HENHMETAFILE metafile) {
  return metafile ? metafile->bytes.block.Start() : nullptr;
}

extern "C" void StreamNextMetafile(MetafileStream* stream) {
  nextStream = stream;
}

extern "C" BOOL DeleteEnhMetaFile(HENHMETAFILE metafile) {
  delete metafile;
  return metafile != nullptr;
}
