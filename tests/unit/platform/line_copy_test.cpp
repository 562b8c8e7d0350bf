#include "platform/line_copy.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace hexlume::line_copy_test {
namespace {

using Copier = int32_t (*)(const char* line, char* copy);

// The place of the line's end, with the bytes before it.
std::string Copied(Copier copier, const std::string& line) {
  std::string copy(shortLineSize, '#');
  const int32_t end = copier(line.data(), copy.data());
  if (end == noLineEnd) return "none: " + copy;
  return std::to_string(end) + ": " + copy.substr(0, static_cast<size_t>(end) + 1);
}

std::string Expected(const std::string& line) {
  for (size_t i = 0; i < line.size(); ++i)
    if (line[i] == '\n' || line[i] == '\0') return std::to_string(i) + ": " + line.substr(0, i + 1);
  return "none: " + line;
}

void ExpectBothRight(const std::string& line) {
  EXPECT_EQ(Expected(line), Copied(CopyShortLine, line));
  EXPECT_EQ(Expected(line), Copied(CopyLineByWords, line));
}

TEST(LineCopy, an_end_at_any_place_is_found) {
  for (int32_t place = 0; place < shortLineSize; ++place) {
    for (const char end : {'\n', '\0'}) {
      std::string line(shortLineSize, 'A');
      line[static_cast<size_t>(place)] = end;
      ExpectBothRight(line);
    }
  }
  ExpectBothRight(std::string(shortLineSize, 'A'));
}

// Bytes that differ from an end by one, by the highest bit or by a carry.
TEST(LineCopy, random_bytes_are_copied_alike) {
  std::mt19937 random(8);
  const char closeBytes[] = {'\n', '\0', '\x01', '\x09', '\x0B', '\x80', '\x8A', '\xFF', 'A', '\r'};
  for (int round = 0; round < 20'000; ++round) {
    std::string line(shortLineSize, '\0');
    for (char& byte : line) {
      byte = closeBytes[2 + random() % 8];
      if (random() % 16 == 0) byte = random() % 2 ? closeBytes[random() % 10] : static_cast<char>(random());
    }
    ExpectBothRight(line);
  }
}

}  // namespace
}  // namespace hexlume::line_copy_test
