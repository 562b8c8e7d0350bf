#include "tools/hexlume/picture/stroke_raster.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <new>

namespace hexlume {
namespace {

constexpr double pi = 3.14159265358979324;

// Mixes two colours: (255 - alpha) parts of the first and alpha parts of the second, rounded. Two channels are
// computed in one number.
uint32_t Mix(uint32_t under, uint32_t over, uint32_t alpha) {
  constexpr uint32_t channels = 0xFF00FF, half = 0x800080;
  const auto mixed = [alpha](uint32_t first, uint32_t second) {
    const uint32_t sum = (first & channels) * (255 - alpha) + (second & channels) * alpha + half;
    return (sum + (sum >> 8 & channels)) >> 8 & channels;
  };
  return mixed(under, over) | mixed(under >> 8, over >> 8) << 8;
}

// Keeps the part of a convex polygon where inside gives no negative number.
template <typename Inside>
void CutAt(std::vector<Point>& polygon, std::vector<Point>& scratch, Inside inside) {
  scratch.clear();
  for (size_t i = 0; i < polygon.size(); ++i) {
    const Point &from = polygon[i], &to = polygon[i + 1 < polygon.size() ? i + 1 : 0];
    const double before = inside(from), after = inside(to);
    if (before >= 0) scratch.push_back(from);
    if ((before < 0) == (after < 0)) continue;
    const double part = before / (before - after);
    scratch.push_back({from.x + part * (to.x - from.x), from.y + part * (to.y - from.y)});
  }
  polygon.swap(scratch);
}

}  // namespace

StrokeRaster::StrokeRaster(const RasterImage& rasterImage)
    : image(rasterImage), changes(static_cast<size_t>(rasterImage.width) + 3, 0.0f) {}

void StrokeRaster::Clip(const CanvasBoxes& boxes) {
  // Where pixels are larger than those of the boxes, boxes overlap that didn't. A region sorts and joins them.
  std::vector<cairo_rectangle_int_t> rectangles;
  rectangles.reserve(boxes.size());
  for (const CanvasBox& box : boxes) {
    const int left = static_cast<int>(box.left), top = static_cast<int>(box.top);
    rectangles.push_back({left, top, static_cast<int>(box.right) - left, static_cast<int>(box.bottom) - top});
  }
  const std::unique_ptr<cairo_region_t, void (*)(cairo_region_t*)> region(
      cairo_region_create_rectangles(rectangles.data(), static_cast<int>(rectangles.size())),
      cairo_region_destroy);
  const cairo_rectangle_int_t whole = {0, 0, image.width, image.height};
  cairo_region_intersect_rectangle(region.get(), &whole);
  if (cairo_region_status(region.get()) != CAIRO_STATUS_SUCCESS) throw std::bad_alloc();
  SetVisible(*region);
}

void StrokeRaster::SetVisible(const cairo_region_t& region) {
  visible.clear();
  rowsVisible.assign(1, 0);
  hasClip = true;
  const int count = cairo_region_num_rectangles(&region);
  for (int next = 0; next < count;) {
    cairo_rectangle_int_t band, box;
    cairo_region_get_rectangle(&region, next, &band);
    rowsVisible.resize(static_cast<size_t>(band.y) + 1, visible.size());
    std::vector<Stretch> stretches;
    for (; next < count; ++next) {
      cairo_region_get_rectangle(&region, next, &box);
      if (box.y != band.y) break;
      stretches.push_back({box.x, box.x + box.width});
    }
    for (int row = 0; row < band.height; ++row) {
      visible.insert(visible.end(), stretches.begin(), stretches.end());
      rowsVisible.push_back(visible.size());
    }
  }
  rowsVisible.resize(static_cast<size_t>(image.height) + 1, visible.size());
}

void StrokeRaster::RemoveClip() {
  hasClip = false;
  visible.clear();
  rowsVisible.clear();
}

void StrokeRaster::SetWidth(double width) {
  if (width == 2 * radius) return;
  // A corner's distance from the circle, in pixels.
  constexpr double stray = 0.05;
  constexpr int mostSteps = 512;  // a circle that needs more has no end within an image
  radius = width / 2;
  const double turn = 2 * std::acos(1 - stray / std::max(radius, 0.5));
  const int steps = static_cast<int>(std::clamp<double>(std::ceil(pi / turn), 4, mostSteps));
  halfCircle.clear();
  for (int i = 0; i <= steps; ++i) {
    const double angle = pi * i / steps - pi / 2;
    halfCircle.push_back({radius * std::cos(angle), radius * std::sin(angle)});
  }
}

void StrokeRaster::MakeCapsule(Point from, Point to) {
  const double x = to.x - from.x, y = to.y - from.y, length = std::hypot(x, y);
  const Point along = length > 0 ? Point{x / length, y / length} : Point{1, 0};
  capsule.clear();
  for (const Point& corner : halfCircle)
    capsule.push_back(
        {to.x + corner.x * along.x - corner.y * along.y, to.y + corner.x * along.y + corner.y * along.x});
  for (const Point& corner : halfCircle)
    capsule.push_back(
        {from.x - corner.x * along.x + corner.y * along.y, from.y - corner.x * along.y - corner.y * along.x});
}

// Cuts the capsule at the edges of the image. Returns false if nothing is left.
bool StrokeRaster::FitCapsule() {
  const double right = image.width, bottom = image.height;
  const auto isInside = [right, bottom](const Point& corner) {
    return corner.x >= 0 && corner.x <= right && corner.y >= 0 && corner.y <= bottom;
  };
  if (std::all_of(capsule.begin(), capsule.end(), isInside)) return true;
  CutAt(capsule, clipped, [](const Point& corner) { return corner.x; });
  CutAt(capsule, clipped, [right](const Point& corner) { return right - corner.x; });
  CutAt(capsule, clipped, [](const Point& corner) { return corner.y; });
  CutAt(capsule, clipped, [bottom](const Point& corner) { return bottom - corner.y; });
  return capsule.size() >= 3;
}

// Parts the capsule's corners into the two sides, from the highest to the lowest.
void StrokeRaster::SplitCapsule() {
  const auto isHigher = [](const Point& a, const Point& b) { return a.y < b.y; };
  const auto [top, bottom] = std::minmax_element(capsule.begin(), capsule.end(), isHigher);
  const auto walk = [this, first = top - capsule.begin(), last = bottom - capsule.begin()](Side& side,
                                                                                           ptrdiff_t step) {
    const auto count = static_cast<ptrdiff_t>(capsule.size());
    side.at = 0;
    side.corners.clear();
    for (ptrdiff_t i = first; i != last; i = (i + step + count) % count)
      side.corners.push_back(capsule[static_cast<size_t>(i)]);
    side.corners.push_back(capsule[static_cast<size_t>(last)]);
  };
  walk(sides[0], 1);
  walk(sides[1], -1);
  // The corners go clockwise, so the first side is the right one.
  sides[0].sign = -1;
  sides[1].sign = 1;
}

// Adds the area on the right of the side's part within a row.
void StrokeRaster::AddSide(Side& side, int row) {
  for (; side.at + 1 < side.corners.size(); ++side.at) {
    const Point &upper = side.corners[side.at], &lower = side.corners[side.at + 1];
    const double top = std::max<double>(upper.y, row), bottom = std::min<double>(lower.y, row + 1.0);
    if (top < bottom) {
      const double slope = (lower.x - upper.x) / (lower.y - upper.y);
      const auto xAt = [&](double y) {
        return std::clamp<double>(upper.x + (y - upper.y) * slope, 0, image.width);
      };
      AddEdge(xAt(top), xAt(bottom), side.sign * (bottom - top));
    }
    if (lower.y > row + 1.0) return;
  }
}

// Adds the area on the right of an edge from x0 to x1 that has this height within the row.
void StrokeRaster::AddEdge(double x0, double x1, double height) {
  const double left = std::min(x0, x1), right = std::max(x0, x1);
  const int first = static_cast<int>(left), last = static_cast<int>(right);
  touched = {std::min(touched.begin, first), std::max(touched.end, last + 2)};
  if (first == last) {
    const double covered = height * (first + 1 - (left + right) / 2);
    changes[static_cast<size_t>(first)] += static_cast<float>(covered);
    changes[static_cast<size_t>(first) + 1] += static_cast<float>(height - covered);
    return;
  }
  // The area that is covered up to a place grows with the square of the distance between left and right.
  const double perSquare = height / (2 * (right - left));
  double before = 0, areaBefore = 0;
  for (int x = first; x <= last; ++x) {
    const double end = std::min(x + 1.0, right) - left;
    const double area = perSquare * end * end + height * std::max(0.0, x + 1.0 - right);
    const double covered = area - areaBefore;
    changes[static_cast<size_t>(x)] += static_cast<float>(covered - before);
    before = covered;
    areaBefore = area;
  }
  changes[static_cast<size_t>(last) + 1] += static_cast<float>(height - before);
}

void StrokeRaster::PaintStretch(int row, Stretch stretch) {
  uint32_t* const pixels = image.Row(row);
  constexpr float half = 0.5f;  // rounds; no number is negative but for the last digits
  float covered = 0;
  for (int x = touched.begin; x < stretch.begin; ++x) covered += changes[static_cast<size_t>(x)];
  for (int x = stretch.begin; x < stretch.end; ++x) {
    covered += changes[static_cast<size_t>(x)];
    const int alpha = static_cast<int>(covered * 255 + half);
    if (alpha >= 255) {
      pixels[x] = color;
    } else if (alpha > 0) {
      pixels[x] = Mix(pixels[x], color, static_cast<uint32_t>(alpha));
    }
  }
}

// Calls paint for the parts of a row's stretch that the clip region leaves.
template <typename Paint>
void StrokeRaster::ForVisible(int row, Stretch stretch, Paint paint) const {
  if (!hasClip) return paint(stretch);
  const auto edgeOf = [this](int place) {
    return visible.begin() + static_cast<ptrdiff_t>(rowsVisible[static_cast<size_t>(place)]);
  };
  const auto end = edgeOf(row + 1);
  auto at = std::upper_bound(edgeOf(row), end, stretch.begin,
                             [](int x, const Stretch& part) { return x < part.end; });
  for (; at != end && at->begin < stretch.end; ++at)
    paint(Stretch{std::max(at->begin, stretch.begin), std::min(at->end, stretch.end)});
}

void StrokeRaster::PaintRow(int row) {
  const Stretch drawn{touched.begin, std::min(touched.end, image.width)};
  ForVisible(row, drawn, [this, row](Stretch stretch) { PaintStretch(row, stretch); });
  std::fill(changes.begin() + touched.begin, changes.begin() + touched.end, 0.0f);
}

void StrokeRaster::DrawPixel(int x, int y, uint32_t rgb) {
  if (x < 0 || x >= image.width || y < 0 || y >= image.height) return;
  ForVisible(y, {x, x + 1}, [&](Stretch) { image.Row(y)[x] = rgb; });
}

void StrokeRaster::DrawLine(Point from, Point to, double width, uint32_t rgb) {
  color = rgb;
  SetWidth(width);
  MakeCapsule(from, to);
  if (!FitCapsule()) return;
  SplitCapsule();
  const Point top = sides[0].corners.front(), bottom = sides[0].corners.back();
  const int first = static_cast<int>(top.y),
            end = std::min(image.height, static_cast<int>(std::ceil(bottom.y)));
  // Strokes are anywhere in an image that is larger than the processor's caches, so pixels are fetched early.
  constexpr int rowsAhead = 16;
  const double slope = top.y < bottom.y ? (bottom.x - top.x) / (bottom.y - top.y) : 0;
  int fetched = first;
  for (int row = first; row < end; ++row) {
    for (; fetched < std::min(end, row + rowsAhead); ++fetched)
      __builtin_prefetch(image.Row(fetched) + static_cast<int>(top.x + (fetched - top.y) * slope), 1);
    touched = {image.width, 0};
    AddSide(sides[0], row);
    AddSide(sides[1], row);
    if (touched.begin < touched.end) PaintRow(row);
  }
}

}  // namespace hexlume
