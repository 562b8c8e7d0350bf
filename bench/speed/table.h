// Tables in Markdown, and the words of their cells.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace hexlume::bench {

void PrintRow(const std::vector<std::string>& cells);
void PrintHeading(const std::vector<std::string>& cells);

std::string CountText(int64_t count);  // 1,000,000
std::string TimeText(double seconds);  // 0.88 s, 4.2 ms, 3.1 us
std::string BytesText(int64_t bytes);  // 92 MB
std::string RatioText(double ratio);   // 1.42

}  // namespace hexlume::bench
