#include "tools/hexlume/metafile/player_clip.h"

#include <algorithm>
#include <new>

namespace hexlume {
namespace {

// Beyond every device, and small enough that the sum of two doesn't overflow.
constexpr int32_t farthest = 1 << 28;

cairo_rectangle_int_t Within(const EmfRectangle& rectangle) {
  const auto limit = [](int32_t value) { return std::clamp(value, -farthest, farthest); };
  const int32_t left = limit(rectangle.left), top = limit(rectangle.top);
  return {left, top, std::max(0, limit(rectangle.right) - left), std::max(0, limit(rectangle.bottom) - top)};
}

constexpr cairo_rectangle_int_t everything = {-farthest, -farthest, 2 * farthest, 2 * farthest};

}  // namespace

void PlayerClip::Combine(const std::vector<EmfRectangle>& rectangles, uint32_t mode) {
  std::vector<cairo_rectangle_int_t> boxes;
  boxes.reserve(rectangles.size());
  for (const EmfRectangle& rectangle : rectangles) boxes.push_back(Within(rectangle));
  std::unique_ptr<cairo_region_t, FreeRegion> other(
      cairo_region_create_rectangles(boxes.data(), static_cast<int>(boxes.size())));
  if (mode == copy) {
    region = std::move(other);
    return;
  }
  if (!region) region.reset(cairo_region_create_rectangle(&everything));
  switch (mode) {
    case intersect: cairo_region_intersect(region.get(), other.get()); break;
    case unite: cairo_region_union(region.get(), other.get()); break;
    case exclusive: cairo_region_xor(region.get(), other.get()); break;
    case subtract: cairo_region_subtract(region.get(), other.get()); break;
    default: break;
  }
}

void PlayerClip::Apply(PlayerCanvas& canvas, const PlayerMapping& mapping) const {
  if (!region) return canvas.RemoveClip();
  // One that got no memory is empty, and stays so.
  if (cairo_region_status(region.get()) != CAIRO_STATUS_SUCCESS) throw std::bad_alloc();
  CanvasBoxes boxes;
  const int count = cairo_region_num_rectangles(region.get());
  boxes.reserve(static_cast<size_t>(count));
  for (int i = 0; i < count; ++i) {
    cairo_rectangle_int_t box;
    cairo_region_get_rectangle(region.get(), i, &box);
    const double right = static_cast<double>(box.x) + box.width,
                 bottom = static_cast<double>(box.y) + box.height;
    mapping.AddBox(boxes, mapping.FromDevice(box.x, box.y), mapping.FromDevice(right, bottom));
  }
  canvas.Clip(boxes);
}

}  // namespace hexlume
