#include "tools/hexlume/player_clip.h"

#include <algorithm>

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

void AddRectangle(cairo_t* context, Point corner, Point opposite) {
  const auto limit = [](double value) { return std::clamp(value, -farthestSeen, farthestSeen); };
  const double left = limit(std::min(corner.x, opposite.x)), right = limit(std::max(corner.x, opposite.x));
  const double top = limit(std::min(corner.y, opposite.y)), bottom = limit(std::max(corner.y, opposite.y));
  if (left < right && top < bottom) cairo_rectangle(context, left, top, right - left, bottom - top);
}

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

void PlayerClip::Apply(cairo_t* context, const PlayerMapping& mapping) const {
  cairo_reset_clip(context);
  if (!region) return;
  cairo_new_path(context);
  for (int i = 0; i < cairo_region_num_rectangles(region.get()); ++i) {
    cairo_rectangle_int_t box;
    cairo_region_get_rectangle(region.get(), i, &box);
    const double right = static_cast<double>(box.x) + box.width,
                 bottom = static_cast<double>(box.y) + box.height;
    AddRectangle(context, mapping.OnEdge(mapping.FromDevice(box.x, box.y)),
                 mapping.OnEdge(mapping.FromDevice(right, bottom)));
  }
  cairo_clip(context);
}

}  // namespace hexlume
