// The functions that record a region.
#include <cstdint>
#include <utility>

#include "platform/portable/device_context.h"
#include "platform/portable/emf_records.h"

namespace hexlume {

namespace {

struct EmfRegionHeader {
  uint32_t headerSize;
  uint32_t kind;
  uint32_t count;
  uint32_t boxesSize;
  RECT box;
};
static_assert(sizeof(EmfRegionHeader) == 32);
static_assert(sizeof(pixman_box32_t) == 16);

struct EmfFillRegionRecord {
  uint32_t type;
  uint32_t size;
  RECT bounds;  // logical units, inclusive
  uint32_t regionSize;
  uint32_t brush;
  EmfRegionHeader region;
};
static_assert(sizeof(EmfFillRegionRecord) == 64);

struct EmfClipRecord {
  uint32_t type;
  uint32_t size;
  uint32_t regionSize;
  uint32_t mode;
};

struct EmfClipRegionRecord {
  EmfClipRecord clip;
  EmfRegionHeader region;
};
static_assert(sizeof(EmfClipRegionRecord) == 48);

constexpr uint32_t regionOfBoxes = 1;

EmfRegionHeader HeaderOf(const RegionData& region) {
  const uint32_t count = static_cast<uint32_t>(region.BoxCount());
  const uint32_t boxesSize = static_cast<uint32_t>(count * sizeof(pixman_box32_t));
  return {sizeof(EmfRegionHeader), regionOfBoxes, count, boxesSize, region.Box()};
}

RECT Inclusive(const RECT& box) {
  return {box.left, box.top, box.right - 1, box.bottom - 1};
}

// As in GDI, each fill creates a brush of its own, which is never deleted or used again.
uint32_t AppendBrush(DeviceContext& dc, const BrushData& brush) {
  const uint32_t index = dc.handles.NextIndex();
  dc.writer.Append(EmfCreateBrushRecord{emrCreateBrushIndirect, sizeof(EmfCreateBrushRecord), index,
                                        brush.style, brush.color, 0});
  GdiObject noObject;
  dc.handles.Take(index, &noObject);
  dc.handles.Forget(index);
  return index;
}

void AppendFill(DeviceContext& dc, const RegionData& region, uint32_t brush) {
  EmfFillRegionRecord record = {};
  record.type = emrFillRgn;
  record.bounds = Inclusive(region.Box());
  record.brush = brush;
  record.region = HeaderOf(region);
  record.regionSize = record.region.headerSize + record.region.boxesSize;
  record.size = static_cast<uint32_t>(sizeof record + record.region.boxesSize);
  dc.writer.Append(&record, sizeof record, region.Boxes().data(), record.region.boxesSize);
  AddLogicalBounds(dc, record.bounds);
}

void AppendClip(DeviceContext& dc, const RegionData& region, int mode) {
  EmfClipRegionRecord record = {};
  record.region = HeaderOf(region);
  record.clip.type = emrExtSelectClipRgn;
  record.clip.size = static_cast<uint32_t>(sizeof record + record.region.boxesSize);
  record.clip.regionSize = record.region.headerSize + record.region.boxesSize;
  record.clip.mode = static_cast<uint32_t>(mode);
  dc.writer.Append(&record, sizeof record, region.Boxes().data(), record.region.boxesSize);
}

int RemoveClip(DeviceContext& dc) {
  dc.writer.Append(EmfClipRecord{emrExtSelectClipRgn, sizeof(EmfClipRecord), 0, RGN_COPY});
  dc.clip.reset();
  return SIMPLEREGION;
}

// Without a clip region, the whole device is the first operand.
int CombineClip(std::optional<RegionData>& clip, const RegionData& region, int mode) {
  RegionData result = clip ? *clip : RegionData({0, 0, referenceDevice.pixels.cx, referenceDevice.pixels.cy});
  if (mode == RGN_COPY) {
    result = region;
  } else if (!result.Combine(result, region, mode)) {
    return RGN_ERROR;
  }
  clip = std::move(result);
  return clip->Complexity();
}

}  // namespace

}  // namespace hexlume

using namespace hexlume;

BOOL FillRgn(HDC dc, HRGN region, HBRUSH brush) {
  const RegionData* const area = DataOf<RegionData>(region);
  const BrushData* const filling = DataOf<BrushData>(brush);
  if (!IsOpen(dc) || !area || !filling) return 0;
  AppendFill(*dc, *area, AppendBrush(*dc, *filling));
  return 1;
}

int ExtSelectClipRgn(HDC dc, HRGN region, int mode) {
  if (!IsOpen(dc)) return RGN_ERROR;
  if (!region) return mode == RGN_COPY ? RemoveClip(*dc) : RGN_ERROR;
  const RegionData* const area = DataOf<RegionData>(region);
  if (!area) return RGN_ERROR;
  AppendClip(*dc, *area, mode);
  return CombineClip(dc->clip, *area, mode);
}
