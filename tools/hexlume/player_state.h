// The state that the records of a metafile have set, and the drawing functions that use it.
#pragma once

#include <map>
#include <optional>
#include <variant>

#include "tools/hexlume/player_clip.h"
#include "tools/hexlume/player_mapping.h"
#include "tools/hexlume/player_text.h"

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
  PlayerState(const MetafileMeasures& measures, const PlayerTarget& playerTarget)
      : target(playerTarget), mapping(measures, playerTarget) {}

  // Draw the path: Stroke with the pen, FillAndStroke first with the brush.
  void Stroke();
  void FillAndStroke();
  // Whether the pen's width is at most that of the thinnest pen.
  bool HasThinPen() const;
  // Draws a line. A thin horizontal or vertical one is aligned to pixels.
  void StrokeLine(Point from, Point to);

  void Select(uint32_t handle);
  void Select(const PlayerObject& object);

  PlayerTarget target;
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
  TextPainter textPainter;

 private:
  double PenWidth() const;
};

// Returns a stock object that a metafile may select.
std::optional<PlayerObject> StockObject(uint32_t handle);

}  // namespace hexlume
