// The drawings of the benchmark, each with so many items. They have one section ENTITIES, and what that needs before.
#pragma once

#include <cstdint>
#include <string>

#include "bench/speed/drawing_file.h"

namespace hexlume::bench {

using Draw = void (*)(DrawingFile& file, int64_t items);

// Writes a whole drawing.
void WriteDrawing(const std::string& path, Draw draw, int64_t items);

// Strokes, blocks and layers.
void DrawLines(DrawingFile& file, int64_t lines);  // 92 bytes each
void DrawSmall(DrawingFile& file, int64_t lines);
void DrawBlockOfTen(DrawingFile& file, int64_t inserts);
void DrawFlatTens(DrawingFile& file, int64_t tens);  // the strokes of DrawBlockOfTen as LINEs
void DrawBlocks(DrawingFile& file, int64_t blocks);
void DrawLayers(DrawingFile& file, int64_t layers);
void DrawInserts(DrawingFile& file, int64_t inserts);

// Groups in blocks, which all inserts together read so many times: of an entity that is drawn, or of one that isn't.
void DrawGroupsRead(DrawingFile& file, int64_t groups);
void DrawGroupsPassedOver(DrawingFile& file, int64_t groups);

// Curves and dashes.
void DrawLwPolylines(DrawingFile& file, int64_t polylines);  // 23 vertices and 0.75 KB each
void DrawPolylineVertices(DrawingFile& file, int64_t vertices);
void DrawLwPolylineVertices(DrawingFile& file, int64_t vertices);
void DrawSplines(DrawingFile& file, int64_t splines);
void DrawSplinePoints(DrawingFile& file, int64_t points);
void DrawDashes(DrawingFile& file, int64_t dashes);
void DrawNestedDashes(DrawingFile& file, int64_t dashes);

// Texts.
void DrawTexts(DrawingFile& file, int64_t texts);
void DrawMTexts(DrawingFile& file, int64_t texts);
void DrawAttributes(DrawingFile& file, int64_t attributes);

// Dimensions and hatches.
void DrawDimensions(DrawingFile& file, int64_t dimensions);
void DrawPatternHatches(DrawingFile& file, int64_t hatches);
void DrawHatchRows(DrawingFile& file, int64_t rows);
void DrawHatchPoints(DrawingFile& file, int64_t points);

}  // namespace hexlume::bench
