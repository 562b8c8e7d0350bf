// The operators of a path in a PDF file.
#pragma once

#include <string>

#include "tools/hexlume/metafile/player_path.h"
#include "tools/hexlume/picture/number_text.h"

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
