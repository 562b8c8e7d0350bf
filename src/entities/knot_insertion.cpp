// Knots are processed from the first to the last, and an insertion changes nothing before its place
// except three points. So points and knots are kept in two parts: the finished part, which grows, and the
// rest as in the file, shifted by one with each insertion. The time for a knot doesn't depend on the
// length of the spline.
#include "entities/knot_insertion.h"

#include <algorithm>
#include <utility>

#include "driver/numbers.h"

namespace hexlume {

namespace {

// A growing array whose unprocessed end is still that of the file.
template <typename Element>
struct MovingArray {
  const std::vector<Element>& source;
  int32_t count;              // elements in all
  std::vector<Element> done;  // the finished ones, from the start
  int32_t moved = 0;          // by how many places the others are shifted from the source

  Element At(int32_t place) const {
    if (place < static_cast<int32_t>(done.size())) return done[static_cast<size_t>(place)];
    // Places after the last element aren't shifted.
    return ElementAt(source, static_cast<size_t>(place < count ? place - moved : place));
  }

  void FinishUpTo(int32_t end) {
    while (static_cast<int32_t>(done.size()) < end) done.push_back(At(static_cast<int32_t>(done.size())));
  }

  // Inserts a copy of an element after it.
  void Duplicate(int32_t place) {
    FinishUpTo(place + 1);
    done.push_back(done.back());
    ++moved;
    ++count;
  }

  // Appends one element: the one that the file has at this place.
  void Append() {
    FinishUpTo(count);
    done.push_back(At(count));
    ++count;
  }
};

using Points = MovingArray<POINT>;
using Knots = MovingArray<double>;

// The weight of the point itself in the new point; the rest is that of the point before it. The inserted knot
// is already at its new place, so the denominator spans four places.
double Alpha(const Knots& knots, int32_t place, double inserted) {
  const double span = knots.At(place + 4) - knots.At(place);
  return span == 0.0 ? 1.0 : (inserted - knots.At(place)) / span;
}

POINT Blend(const POINT& point, const POINT& before, double alpha) {
  return {Trunc(point.x * alpha + before.x * (1.0 - alpha)),
          Trunc(point.y * alpha + before.y * (1.0 - alpha))};
}

// Adds a point for the knot just inserted at place m: blends the three points before m and shifts those
// from m on.
void InsertPoint(Points& points, const Knots& knots, int32_t m, double inserted) {
  if (m <= points.count) {
    points.Duplicate(std::max(m - 1, 0));
  } else {
    points.Append();
  }
  for (int32_t place = std::min(m, points.count) - 1; place >= std::max(m - 3, 1); --place) {
    POINT& point = points.done[static_cast<size_t>(place)];
    point = Blend(point, points.done[static_cast<size_t>(place) - 1], Alpha(knots, place, inserted));
  }
}

}  // namespace

bool InsertKnots(const std::vector<POINT>& control, const std::vector<double>& knotsOfFile,
                 int32_t controlCount, int32_t maxCount, std::vector<POINT>& result) {
  Points points = {control, controlCount, {}};
  Knots knots = {knotsOfFile, static_cast<int32_t>(knotsOfFile.size()), {}};
  int32_t i = 0;
  while (i < knots.count) {
    const double knot = knots.At(i);
    // Compared with 0, not with the first knot: knots below the first count as interior too.
    if (!(knot > 0.0 && knot < knots.At(knots.count - 1))) {
      ++i;
      continue;
    }
    if (points.count > maxCount) return false;
    // Copies of the knot in the file aren't counted: its fourth copy is inserted again.
    knots.Duplicate(i);
    InsertPoint(points, knots, i, knot);
    knots.Duplicate(i);
    InsertPoint(points, knots, i + 2, knot);
    i += 3;
  }
  if (points.count > maxCount) return false;
  points.FinishUpTo(points.count);
  result = std::move(points.done);
  return true;
}

}  // namespace hexlume
