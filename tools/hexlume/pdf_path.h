// The operators of a path in a PDF file.
#pragma once

#include <string>

#include "tools/hexlume/number_text.h"
#include "tools/hexlume/player_path.h"

namespace hexlume {

class PdfPathWriter {
 public:
  explicit PdfPathWriter(std::string& pathText) : text(pathText) {}

  void MoveTo(Point to) { Append(to, "m\n"); }
  void LineTo(Point to) { Append(to, "l\n"); }
  void CurveTo(Point control1, Point control2, Point to) {
    Append(control1, "");
    Append(control2, "");
    Append(to, "c\n");
  }
  void Close() { text += "h\n"; }

 private:
  void Append(Point point, const char* step) {
    AppendTenths(text, Tenths(point.x));
    text += ' ';
    AppendTenths(text, Tenths(point.y));
    text += ' ';
    text += step;
  }

  std::string& text;
};

}  // namespace hexlume
