// LINEs among the groups that are kept: for the fast path of DrawBlockLine.
#pragma once

#include <vector>

namespace hexlume {

struct KeptGroup;

// The groups of a LINE that gives both of its ends.
struct KeptLine {
  double x[2], y[2];      // model units: groups 10, 11 and 20, 21, the last one of each
  const KeptGroup* next;  // with code 0, after the LINE
  bool isLikeLast;        // it follows the LINE before it in the list and has the same groups for its style
};

// Lists the LINEs of a block, whose groups end with noKeptGroup. The first group of each refers to it.
std::vector<KeptLine> FindKeptLines(std::vector<KeptGroup>& groups);

}  // namespace hexlume
