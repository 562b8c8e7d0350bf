// Knots are taken from the first to the last, and an insertion changes nothing in front of its place but
// three points. So points and knots are kept as the part that is done, which grows, and the rest as the file
// has it, which moves up by one with each insertion: a long spline takes no longer for each of its knots than
// a short one.
#include "entities/knot_insertion.h"

#include <algorithm>
#include <utility>

#include "driver/numbers.h"

namespace hexlume {

namespace {

// A growing array whose end is still that of the file.
template <typename Element>
struct MovingArray {
  const std::vector<Element>& source;
  int32_t count;              // elements in all
  std::vector<Element> done;  // the first of them
  int32_t moved = 0;          // by how much the others stand behind their places in the source

  Element At(int32_t place) const {
    if (place < static_cast<int32_t>(done.size())) return done[static_cast<size_t>(place)];
    // Behind the last element the file's own stand where they always stood.
    return ElementAt(source, static_cast<size_t>(place < count ? place - moved : place));
  }

  void FinishUpTo(int32_t end) {
    while (static_cast<int32_t>(done.size()) < end) done.push_back(At(static_cast<int32_t>(done.size())));
  }

  // Puts a second copy behind an element.
  void Duplicate(int32_t place) {
    FinishUpTo(place + 1);
    done.push_back(done.back());
    ++moved;
    ++count;
  }

  // One more element at the end: whatever the file has there.
  void Append() {
    FinishUpTo(count);
    done.push_back(At(count));
    ++count;
  }
};

using Points = MovingArray<POINT>;
using Knots = MovingArray<double>;

// The share of the point itself in the new point, the rest being that of the one in front of it. The knot to
// be inserted stands at its new place already, so that the denominator spans four places.
double Alpha(const Knots& knots, int32_t place, double inserted) {
  const double span = knots.At(place + 4) - knots.At(place);
  return span == 0.0 ? 1.0 : (inserted - knots.At(place)) / span;
}

POINT Blend(const POINT& point, const POINT& before, double alpha) {
  return {Trunc(point.x * alpha + before.x * (1.0 - alpha)),
          Trunc(point.y * alpha + before.y * (1.0 - alpha))};
}

// One more point for a knot that has just been put in place m: three points in front of m are blended, and
// those from m on move up.
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
    // Compared with 0 and not with the first knot: knots below the first are interior ones too.
    if (!(knot > 0.0 && knot < knots.At(knots.count - 1))) {
      ++i;
      continue;
    }
    if (points.count > maxCount) return false;
    // How often the file itself has the knot isn't looked at: its fourth copy is inserted anew.
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
