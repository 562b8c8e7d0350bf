#include "tools/hexlume/command/suggestion.h"

#include <algorithm>

namespace hexlume {
namespace {

// Letters to insert, remove, replace or exchange with the next one.
size_t Distance(const std::string& from, const std::string& to) {
  std::vector<std::vector<size_t>> rows(from.size() + 1, std::vector<size_t>(to.size() + 1));
  for (size_t i = 0; i <= from.size(); ++i) rows[i][0] = i;
  for (size_t j = 0; j <= to.size(); ++j) rows[0][j] = j;
  for (size_t i = 1; i <= from.size(); ++i) {
    for (size_t j = 1; j <= to.size(); ++j) {
      const size_t replaced = rows[i - 1][j - 1] + (from[i - 1] == to[j - 1] ? 0 : 1);
      rows[i][j] = std::min({rows[i - 1][j] + 1, rows[i][j - 1] + 1, replaced});
      if (i > 1 && j > 1 && from[i - 1] == to[j - 2] && from[i - 2] == to[j - 1])
        rows[i][j] = std::min(rows[i][j], rows[i - 2][j - 2] + 1);
    }
  }
  return rows[from.size()][to.size()];
}

bool BeginsWith(const std::string& word, const std::string& start) {
  return word.compare(0, start.size(), start) == 0;
}

}  // namespace

std::string Suggestion(const std::string& word, const std::vector<std::string>& words) {
  constexpr size_t longest = 40, shortestStart = 4;
  if (word.size() > longest) return "";
  const size_t most = word.size() < 6 ? 1 : 2;
  const std::string* nearest = nullptr;
  size_t least = most + 1;
  for (const std::string& each : words) {
    const bool isStart = word.size() >= shortestStart && BeginsWith(each, word);
    const size_t distance = isStart ? 0 : Distance(word, each);
    if (distance < least) {
      least = distance;
      nearest = &each;
    }
  }
  return nearest ? "; did you mean " + *nearest + "?" : "";
}

}  // namespace hexlume
