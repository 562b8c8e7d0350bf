#include "bench/speed/table.h"

#include <cstdio>

namespace hexlume::bench {

namespace {

std::string Formatted(const char* format, double value) {
  char text[48];
  std::snprintf(text, sizeof text, format, value);
  return text;
}

}  // namespace

void PrintRow(const std::vector<std::string>& cells) {
  std::string line = "|";
  for (const std::string& cell : cells) line += ' ' + cell + " |";
  std::printf("%s\n", line.c_str());
  std::fflush(stdout);  // as a row can take minutes
}

void PrintHeading(const std::vector<std::string>& cells) {
  std::printf("\n");
  PrintRow(cells);
  PrintRow(std::vector<std::string>(cells.size(), "---"));
}

std::string CountText(int64_t count) {
  std::string text = std::to_string(count);
  for (size_t place = text.size(); place > 3;) text.insert(place -= 3, ",");
  return text;
}

std::string TimeText(double seconds) {
  if (seconds >= 0.1) return Formatted("%.2f s", seconds);
  if (seconds >= 1e-4) return Formatted("%.1f ms", seconds * 1e3);
  return Formatted("%.2f us", seconds * 1e6);
}

std::string BytesText(int64_t bytes) {
  const auto size = static_cast<double>(bytes);
  return bytes < 10000 ? Formatted("%.1f KB", size / 1e3)
                       : Formatted(bytes < 10000000 ? "%.1f MB" : "%.0f MB", size / 1e6);
}

std::string RatioText(double ratio) {
  return Formatted("%.2f", ratio);
}

}  // namespace hexlume::bench
