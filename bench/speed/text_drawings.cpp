#include "bench/speed/drawings.h"
#include "bench/speed/sheet.h"

namespace hexlume::bench {

namespace {

// A text of layer 0 with the colour 7 and a height of 3 mm, without its words.
void TextEntity(DrawingFile& file, const char* name, int64_t i) {
  file.Entity(name);
  file.Whole(62, 7);
  file.Point(0, ColumnOf(i), 10 + RowOf(i));
  file.Number(40, 3);
}

}  // namespace

// Alternately Latin and Japanese, because the two are measured and placed differently.
void DrawTexts(DrawingFile& file, int64_t texts) {
  BeginEntities(file);
  for (int64_t i = 0; i < texts; ++i) {
    TextEntity(file, "TEXT", i);
    file.Text(1, (i % 2 ? "\x90\x7D\x94\xD4 %%c" : "R") + std::to_string(i));
  }
  file.EndSection();
}

// With three paragraphs each.
void DrawMTexts(DrawingFile& file, int64_t texts) {
  BeginEntities(file);
  for (int64_t i = 0; i < texts; ++i) {
    TextEntity(file, "MTEXT", i);
    file.Whole(71, 1);
    file.Text(1, "{\\C1;M" + std::to_string(i) + "}\\P\x8D\x87\x8C\x76 %%d\\P\\W0.8;Third paragraph");
  }
  file.EndSection();
}

void DrawAttributes(DrawingFile& file, int64_t attributes) {
  BeginEntities(file);
  for (int64_t i = 0; i < attributes; ++i) {
    TextEntity(file, "ATTRIB", i);
    file.Text(1, "\\A1;P-" + std::to_string(i));
  }
  file.EndSection();
}

}  // namespace hexlume::bench
