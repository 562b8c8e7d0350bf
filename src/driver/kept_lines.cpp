#include "driver/kept_lines.h"

#include <cstring>

#include "driver/kept_groups.h"

namespace hexlume {

namespace {

// Line type, layer, thickness and colour.
bool IsStyle(const KeptGroup& group) {
  return group.code == 6 || group.code == 8 || group.code == 39 || group.code == 62;
}

const KeptGroup* FindStyle(const KeptGroup* group, const KeptGroup* end) {
  while (group != end && !IsStyle(*group)) ++group;
  return group;
}

// Compares the groups for the style, in their order, of two entities that end before these groups.
bool HaveSameStyle(const KeptGroup* a, const KeptGroup* endOfA, const KeptGroup* b, const KeptGroup* endOfB) {
  for (;; ++a, ++b) {
    a = FindStyle(a, endOfA);
    b = FindStyle(b, endOfB);
    if (a == endOfA || b == endOfB) return a == endOfA && b == endOfB;
    if (a->code != b->code || std::strcmp(a->value, b->value) != 0) return false;
  }
}

// Takes a number of an end. Returns a bit for each of the four, 0 for another group.
uint32_t TakeNumber(const KeptGroup& group, KeptLine& line) {
  switch (group.code) {
    case 10: line.x[0] = group.number; return 1;
    case 11: line.x[1] = group.number; return 2;
    case 20: line.y[0] = group.number; return 4;
    case 21: line.y[1] = group.number; return 8;
    default: return 0;
  }
}

// Returns whether these are the groups of a LINE with both ends.
bool TakeLine(const KeptGroup* first, KeptLine& line) {
  constexpr uint32_t allNumbers = 15;
  uint32_t numbers = 0;
  const KeptGroup* group = first;
  for (; group != first + first->inEntity; ++group) numbers |= TakeNumber(*group, line);
  line.next = group;
  return numbers == allNumbers && group->code == 0;
}

}  // namespace

std::vector<KeptLine> FindKeptLines(std::vector<KeptGroup>& groups) {
  std::vector<KeptLine> lines;
  std::vector<KeptGroup*> firsts;
  for (size_t i = 1; i < groups.size(); ++i) {
    const KeptGroup& name = groups[i - 1];
    KeptLine line = {};
    if (name.code != 0 || std::strcmp(name.value, "LINE") != 0 || !TakeLine(&groups[i], line)) continue;
    line.isLikeLast = !lines.empty() && lines.back().next == &name &&
                      HaveSameStyle(firsts.back(), lines.back().next, &groups[i], line.next);
    lines.push_back(line);
    firsts.push_back(&groups[i]);
  }
  lines.shrink_to_fit();
  for (size_t i = 0; i < lines.size(); ++i) firsts[i]->line = &lines[i];
  return lines;
}

}  // namespace hexlume
