#include "bench/speed/drawings.h"
#include "bench/speed/sheet.h"

namespace hexlume::bench {

namespace {

// Numbers by chance, the same in every run.
class Chance {
 public:
  double Between(double least, double most) {
    number = number * 6364136223846793005 + 1442695040888963407;
    return least + (most - least) * static_cast<double>(number >> 11) / 9007199254740992.0;
  }

 private:
  uint64_t number = 1;
};

constexpr int strokesOfTheBlock = 10;

void Tables(DrawingFile& file) {
  file.BeginSection("TABLES");
  LayerTable(file);
  file.Text(0, "ENDTAB");
  file.EndSection();
}

// The i-th stroke of the block: from left to right, as the converters sort by different rules.
void Stroke(DrawingFile& file, int i, double x, double y) {
  file.Line(x + i * 0.5, y, x + i * 0.5 + 4, y + 3 + i * 0.25);
}

// Groups without meaning, which belong to the block's line or to an entity of a kind that isn't drawn in a block.
void DrawGroups(DrawingFile& file, int64_t groups, const char* entity) {
  constexpr int64_t groupsOfABlock = 20000;
  file.Header(sheetWidth, sheetHeight);
  file.BeginSection("BLOCKS");
  file.BeginBlock("B");
  file.Line(0, 0, 5, 3);
  if (entity) file.Text(0, entity);
  for (int64_t i = 0; i < groupsOfABlock; ++i) file.Whole(1010, i);
  file.EndBlock();
  file.EndSection();
  file.BeginSection("ENTITIES");
  for (int64_t i = 0; i < groups / groupsOfABlock; ++i) file.Insert("B", ColumnOf(i), RowOf(i));
  file.EndSection();
}

}  // namespace

void WriteDrawing(const std::string& path, Draw draw, int64_t items) {
  DrawingFile file(path);
  draw(file, items);
  file.Close();
}

void DrawLines(DrawingFile& file, int64_t lines) {
  file.Header(1000, 700);
  TablesOfLayer(file, "L1");
  file.BeginSection("ENTITIES");
  Chance chance;
  const auto x = [&chance] { return chance.Between(100, 999); };
  const auto y = [&chance] { return chance.Between(100, 699); };
  for (int64_t i = 0; i < lines; ++i) {
    const double x1 = x(), y1 = y(), x2 = x(), y2 = y();
    file.Line(x1, y1, x2, y2, "L1");
  }
  file.EndSection();
}

void DrawSmall(DrawingFile& file, int64_t lines) {
  BeginEntities(file);
  for (int64_t i = 0; i < lines; ++i) file.Line(ColumnOf(i), 10, ColumnOf(i) + 5, 13);
  file.EndSection();
}

void DrawBlockOfTen(DrawingFile& file, int64_t inserts) {
  file.Header(sheetWidth, sheetHeight);
  Tables(file);
  file.BeginSection("BLOCKS");
  file.BeginBlock("TEN");
  for (int i = 0; i < strokesOfTheBlock; ++i) Stroke(file, i, 0, 0);
  file.EndBlock();
  file.EndSection();
  file.BeginSection("ENTITIES");
  for (int64_t i = 0; i < inserts; ++i) file.Insert("TEN", ColumnOf(i), RowOf(i));
  file.EndSection();
}

void DrawFlatTens(DrawingFile& file, int64_t tens) {
  file.Header(sheetWidth, sheetHeight);
  Tables(file);
  file.BeginSection("ENTITIES");
  for (int64_t ten = 0; ten < tens; ++ten)
    for (int i = 0; i < strokesOfTheBlock; ++i) Stroke(file, i, ColumnOf(ten), RowOf(ten));
  file.EndSection();
}

void DrawBlocks(DrawingFile& file, int64_t blocks) {
  const auto name = [](int64_t i) { return 'B' + std::to_string(i); };
  file.Header(sheetWidth, sheetHeight);
  file.BeginSection("BLOCKS");
  for (int64_t i = 0; i < blocks; ++i) {
    file.BeginBlock(name(i));
    file.Line(0, 0, 5, 3);
    file.EndBlock();
  }
  file.EndSection();
  file.BeginSection("ENTITIES");
  for (int64_t i = 0; i < blocks; ++i) file.Insert(name(i), ColumnOf(i), RowOf(i));
  file.EndSection();
}

void DrawLayers(DrawingFile& file, int64_t layers) {
  const auto name = [](int64_t i) { return 'L' + std::to_string(i); };
  file.Header(sheetWidth, sheetHeight);
  file.BeginSection("TABLES");
  LayerTable(file);
  for (int64_t i = 0; i < layers; ++i) {
    Layer(file, name(i), 3);
    file.Text(6, "CONTINUOUS");
  }
  file.Text(0, "ENDTAB");
  file.EndSection();
  file.BeginSection("ENTITIES");
  for (int64_t i = 0; i < layers; ++i)
    file.Line(ColumnOf(i), RowOf(i), ColumnOf(i) + 5, RowOf(i) + 3, name(i));
  file.EndSection();
}

void DrawInserts(DrawingFile& file, int64_t inserts) {
  file.Header(sheetWidth, sheetHeight);
  file.BeginSection("BLOCKS");
  file.BeginBlock("B");
  file.Line(0, 0, 5, 3);
  file.EndBlock();
  file.EndSection();
  file.BeginSection("ENTITIES");
  for (int64_t i = 0; i < inserts; ++i) file.Insert("B", ColumnOf(i), RowOf(i));
  file.EndSection();
}

void DrawGroupsRead(DrawingFile& file, int64_t groups) {
  DrawGroups(file, groups, nullptr);
}

void DrawGroupsPassedOver(DrawingFile& file, int64_t groups) {
  DrawGroups(file, groups, "HATCH");
}

}  // namespace hexlume::bench
