#include "tools/hexlume/command/message_log.h"

#include <cmath>

#include "tools/hexlume/system/system.h"

namespace hexlume {
namespace {

std::string TwoDigits(int64_t number) {
  return (number < 10 ? "0" : "") + std::to_string(number);
}

std::string TimeText(double seconds) {
  const auto whole = static_cast<int64_t>(std::ceil(seconds));
  const int64_t hours = whole / 3600, minutes = whole / 60 % 60;
  const std::string end = TwoDigits(whole % 60);
  if (hours == 0) return std::to_string(minutes) + ':' + end;
  return std::to_string(hours) + ':' + TwoDigits(minutes) + ':' + end;
}

std::string RateText(double rate) {
  if (rate >= 10) return std::to_string(static_cast<int64_t>(rate));
  const auto tenths = static_cast<int64_t>(rate * 10);
  return std::to_string(tenths / 10) + '.' + std::to_string(tenths % 10);
}

}  // namespace

std::string ProgressLine(const Progress& progress, double seconds) {
  std::string line = std::to_string(progress.done) + '/' + std::to_string(progress.total) + " done";
  if (progress.failed > 0) line += ", " + std::to_string(progress.failed) + " failed";
  if (progress.unchanged > 0) line += ", " + std::to_string(progress.unchanged) + " unchanged";
  // Those that are passed over take no time.
  const double converted = static_cast<double>(progress.done - progress.unchanged);
  if (seconds <= 0 || converted <= 0) return line;
  const double rate = converted / seconds;
  line += ", " + RateText(rate) + "/s";
  const double left = static_cast<double>(progress.total - progress.done) / rate;
  return left > 0 ? line + ", " + TimeText(left) + " left" : line;
}

void MessageLog::Failure(const std::string& words) {
  Print(words);
}

void MessageLog::Warning(const std::string& words) {
  if (!quiet) Print(words);
}

void MessageLog::Print(const std::string& words) {
  ClearProgress();
  PrintError("hexlume: " + words + '\n');
}

void MessageLog::Show(const Progress& progress) {
  constexpr std::chrono::milliseconds interval(100);
  static const bool isTerminal = StandardErrorIsTerminal();
  if (quiet || !isTerminal || progress.total < 2) return;
  const Clock::time_point now = Clock::now();
  const bool isEnd = progress.done == progress.total;
  if (!isEnd && shownLength > 0 && now - shownAt < interval) return;
  const std::string line = ProgressLine(progress, std::chrono::duration<double>(now - start).count());
  const std::string rest(shownLength > line.size() ? shownLength - line.size() : 0, ' ');
  PrintError('\r' + line + rest + (isEnd ? "\n" : ""));
  shownLength = isEnd ? 0 : line.size();
  shownAt = now;
}

void MessageLog::ClearProgress() {
  if (shownLength > 0) PrintError('\r' + std::string(shownLength, ' ') + '\r');
  shownLength = 0;
}

}  // namespace hexlume
