#include "bench/speed/drawing_file.h"

#include <charconv>
#include <stdexcept>

namespace hexlume::bench {

namespace {

constexpr size_t bufferSize = 1 << 16;

}  // namespace

DrawingFile::DrawingFile(const std::string& path) : path(path), file(std::fopen(path.c_str(), "wb")) {
  if (!file) throw std::runtime_error(path + " can't be written");
}

// Codes are right-aligned, as drawing programs write them.
void DrawingFile::Text(int code, std::string_view value) {
  char digits[16];
  const auto length = static_cast<size_t>(std::to_chars(digits, digits + sizeof digits, code).ptr - digits);
  if (length < 3) groups.append(3 - length, ' ');
  groups.append(digits, length).append(1, '\n').append(value).append(1, '\n');
  if (groups.size() >= bufferSize) Flush();
}

void DrawingFile::Flush() {
  if (std::fwrite(groups.data(), 1, groups.size(), file.get()) != groups.size())
    throw std::runtime_error(path + " can't be written");
  groups.clear();
}

void DrawingFile::Whole(int code, int64_t value) {
  char text[24];
  const auto after = std::to_chars(text, text + sizeof text, value).ptr;
  Text(code, {text, static_cast<size_t>(after - text)});
}

void DrawingFile::Number(int code, double value) {
  char text[48];
  const auto after = std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, 6).ptr;
  Text(code, {text, static_cast<size_t>(after - text)});
}

void DrawingFile::Point(int number, double x, double y) {
  Number(10 + number, x);
  Number(20 + number, y);
}

void DrawingFile::Entity(std::string_view name, std::string_view layer) {
  Text(0, name);
  Text(8, layer);
}

void DrawingFile::Line(double x1, double y1, double x2, double y2, std::string_view layer) {
  Entity("LINE", layer);
  Point(0, x1, y1);
  Text(30, "0.0");
  Point(1, x2, y2);
  Text(31, "0.0");
}

void DrawingFile::Insert(std::string_view block, double x, double y) {
  Entity("INSERT");
  Text(2, block);
  Point(0, x, y);
}

void DrawingFile::BeginBlock(std::string_view name) {
  Entity("BLOCK");
  Text(2, name);
  Whole(70, 0);
  Point(0, 0, 0);
  Text(3, name);
}

void DrawingFile::EndBlock() {
  Entity("ENDBLK");
}

void DrawingFile::BeginSection(std::string_view name) {
  Text(0, "SECTION");
  Text(2, name);
}

void DrawingFile::EndSection() {
  Text(0, "ENDSEC");
}

void DrawingFile::Header(double width, double height, std::string_view version) {
  BeginSection("HEADER");
  Text(9, "$ACADVER");
  Text(1, version);
  for (const char* corners : {"LIM", "EXT"}) {
    const std::string name = '$' + std::string(corners);
    Text(9, name + "MIN");
    Point(0, 0, 0);
    Text(9, name + "MAX");
    Point(0, width, height);
  }
  EndSection();
}

void DrawingFile::Close() {
  Text(0, "EOF");
  Flush();
  if (std::fclose(file.release()) != 0) throw std::runtime_error(path + " can't be written");
}

}  // namespace hexlume::bench
