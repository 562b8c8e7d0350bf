#include "tools/hexlume/picture/box_outline.h"

#include <algorithm>

namespace hexlume {
namespace {

// Boxes one below the other.
struct Pile {
  CanvasBox lowest;
  std::vector<Point> left, right;  // the corners so far, from top to bottom
};

bool AreAdjoining(const CanvasBox& above, const CanvasBox& box) {
  return above.bottom == box.top && above.left < box.right && box.left < above.right;
}

Pile BeginPile(const CanvasBox& box) {
  return {box, {{box.left, box.top}}, {{box.right, box.top}}};
}

void Put(Pile& pile, const CanvasBox& box) {
  const auto step = [&box](std::vector<Point>& side, double from, double to) {
    if (from != to) side.insert(side.end(), {{from, box.top}, {to, box.top}});
  };
  step(pile.left, pile.lowest.left, box.left);
  step(pile.right, pile.lowest.right, box.right);
  pile.lowest = box;
}

void EndPile(const Pile& pile, PlayerPath& path) {
  path.MoveTo(pile.left.front());
  for (size_t i = 1; i < pile.left.size(); ++i) path.LineTo(pile.left[i]);
  path.LineTo({pile.lowest.left, pile.lowest.bottom});
  path.LineTo({pile.lowest.right, pile.lowest.bottom});
  for (size_t i = pile.right.size(); i > 0; --i) path.LineTo(pile.right[i - 1]);
  path.Close();
}

// Puts each box of a band under a pile that touches it, both from left to right.
class BandStacker {
 public:
  explicit BandStacker(PlayerPath& outline) : path(outline) {}

  void AddBand(const CanvasBox* begin, const CanvasBox* end) {
    std::vector<Pile> next;
    auto pile = piles.begin();
    for (const CanvasBox* box = begin; box != end; ++box) {
      for (; pile != piles.end() && pile->lowest.right <= box->left; ++pile) EndPile(*pile, path);
      if (pile != piles.end() && AreAdjoining(pile->lowest, *box)) {
        next.push_back(std::move(*pile++));
        Put(next.back(), *box);
      } else {
        next.push_back(BeginPile(*box));
      }
    }
    for (; pile != piles.end(); ++pile) EndPile(*pile, path);
    piles = std::move(next);
  }

  void End() { AddBand(nullptr, nullptr); }

 private:
  PlayerPath& path;
  std::vector<Pile> piles;
};

}  // namespace

PlayerPath OutlineOf(const CanvasBoxes& boxes, const PathLimits& limits) {
  CanvasBoxes copy;
  const auto isBefore = [](const CanvasBox& a, const CanvasBox& b) {
    return a.top != b.top ? a.top < b.top : a.left < b.left;
  };
  const bool isSorted = std::is_sorted(boxes.begin(), boxes.end(), isBefore);
  if (!isSorted) {
    copy = boxes;
    std::sort(copy.begin(), copy.end(), isBefore);
  }
  const CanvasBoxes& sorted = isSorted ? boxes : copy;
  PlayerPath path(limits);
  BandStacker stacker(path);
  const CanvasBox* const end = sorted.data() + sorted.size();
  for (const CanvasBox* band = sorted.data(); band != end;) {
    const CanvasBox* const next =
        std::find_if(band, end, [band](const CanvasBox& box) { return box.top != band->top; });
    stacker.AddBand(band, next);
    band = next;
  }
  stacker.End();
  return path;
}

}  // namespace hexlume
