// What the records of a metafile have set so far, and how it is drawn with.
#pragma once

#include <map>
#include <optional>
#include <variant>

#include "tools/hexlume/player_clip.h"
#include "tools/hexlume/player_mapping.h"
#include "tools/hexlume/player_text.h"

namespace hexlume {

// Objects of a metafile. Their numbers are GDI's.
struct PlayerPen {
  enum Style : uint32_t { solid, dash, dot, dashDot, dashDotDot, null, insideFrame };
  uint32_t style = solid;
  int32_t width = 0;  // logical units, 0 for the thinnest
  uint32_t colour = 0;
};

struct PlayerBrush {
  enum Style : uint32_t { solid, null };
  uint32_t style = solid;
  uint32_t colour = 0xFFFFFF;
};

using PlayerObject = std::variant<PlayerPen, PlayerBrush, PlayerFont>;

struct PlayerState {
  PlayerState(const MetafileMeasures& measures, const PlayerTarget& playerTarget)
      : target(playerTarget), mapping(measures, playerTarget) {}

  // Outlines the path with the pen, after its inside was filled with the brush.
  void Stroke();
  void FillAndStroke();
  // Whether the pen is as thin as can be, whatever its width says.
  bool HasThinPen() const;
  // A straight stroke; one that is thin and runs along an axis is sharp on pixels.
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
  uint32_t textColour = 0;
  bool opaqueText = true;

  PlayerClip clip;
  TextPainter textPainter;

 private:
  double PenWidth() const;
};

// One of the system's own objects, if a metafile may select it.
std::optional<PlayerObject> StockObject(uint32_t handle);

}  // namespace hexlume
