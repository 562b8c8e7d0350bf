// The state that the records of a metafile have set, and the drawing functions that use it.
#pragma once

#include <map>
#include <optional>
#include <variant>

#include "tools/hexlume/metafile/player_clip.h"
#include "tools/hexlume/metafile/player_mapping.h"
#include "tools/hexlume/metafile/player_text.h"

namespace hexlume {

// The objects of a metafile. The enumerators have GDI's values.
struct PlayerPen {
  enum Style : uint32_t { solid, dash, dot, dashDot, dashDotDot, null, insideFrame };
  uint32_t style = solid;
  int32_t width = 0;  // logical units, 0 for the thinnest pen
  uint32_t color = 0;
};

struct PlayerBrush {
  enum Style : uint32_t { solid, null };
  uint32_t style = solid;
  uint32_t color = 0xFFFFFF;
};

using PlayerObject = std::variant<PlayerPen, PlayerBrush, PlayerFont>;

struct PlayerState {
  PlayerState(const MetafileMeasures& measures, PlayerCanvas& playerCanvas)
      : canvas(playerCanvas), mapping(measures, playerCanvas.Measures()) {}

  PlayerPath EmptyPath() const { return PlayerPath(canvas.Measures().limits); }
  // Draw a path: Stroke with the pen, FillAndStroke first with the brush.
  void Stroke(const PlayerPath& path);
  void FillAndStroke(const PlayerPath& path);
  // Whether the pen's width is at most that of the thinnest pen.
  bool HasThinPen() const;
  // Draws a line. A thin horizontal or vertical one is aligned to pixels.
  void StrokeLine(Point from, Point to);

  // Whether a canvas can draw at this point.
  bool IsWithinReach(Point point) const;

  void Select(uint32_t handle);
  void Select(const PlayerObject& object);

  PlayerCanvas& canvas;
  PlayerMapping mapping;

  std::map<uint32_t, PlayerObject> objects;  // by their index in the metafile
  PlayerPen pen;
  PlayerBrush brush;
  PlayerFont font;

  Point current{0, 0};  // logical units
  bool windingFill = false;
  bool clockwiseArcs = false;
  uint32_t textAlign = 0;
  uint32_t textColor = 0;
  bool opaqueText = true;

  PlayerClip clip;

 private:
  double PenWidth() const;
  StrokeStyle Style() const;
};

// Returns a stock object that a metafile may select.
std::optional<PlayerObject> StockObject(uint32_t handle);

}  // namespace hexlume
