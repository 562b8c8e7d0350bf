// INSERT: a block at a place, scale and angle. Nested blocks are put together simply, without a matrix:
// scales multiply, angles add up, and a block within a turned one turns about itself where it would lie
// unturned.
#include "composite/insert.h"

#include <cstring>

#include "composite/block_dispatch.h"
#include "composite/bookmark.h"
#include "driver/bounded_copy.h"
#include "driver/group_reader.h"
#include "entities/converter_rules.h"

namespace hexlume {

namespace {

// Group 2. A name that no block has leaves what an earlier one has found.
void TakeBody(const BlockEntry* block, int32_t& bodyOffset) {
  if (block) bodyOffset = block->bodyOffset;
}

double Radians(const char* degrees) {
  return Atof(degrees) * pi / 180.0;
}

// A mirrored insert, with its negative scale, is drawn as large as the block and unmirrored.
double PositiveScale(const char* value) {
  const double scale = Atof(value);
  return scale > 0.0 ? scale : 1.0;
}

// In the dimension scopes a negative scale mirrors.
double ScaleButZero(const char* value) {
  const double scale = Atof(value);
  return scale == 0.0 ? 1.0 : scale;
}

// An insert on a layer that the user left out is played back all the same: the block's entities are asked
// one by one.
void TakeInsertLayer(const char* name, int32_t& byBlockFlag) {
  BoundedCopy(state.insertLayer, name);
  if (std::strcmp(name, "0") == 0) byBlockFlag = 1;
  if (const LayerEntry* layer = FindLayer(name)) state.entColor = layer->color;
}

// Layer "0" is that of the dimension, and its colour the dimension's. Should the table not have that layer,
// the colour is left at -1 and handed on so.
void TakeDimInsertLayer(int32_t dimensionColor) {
  if (std::strcmp(state.groupValue, "0") == 0) {
    BoundedCopy(state.groupValue, state.insertLayer);
    state.dimColor = -1;
  }
  const LayerEntry* layer = FindLayer(state.groupValue);
  if (layer) state.dimColor = state.dimColor == -1 ? dimensionColor : layer->color;
}

}  // namespace

int32_t DrawInsert(const EntityRun& run) {
  int32_t bodyOffset = noBody;
  int32_t byBlockFlag = 0;
  double x = 0.0;
  double y = 0.0;
  int32_t more = ReadGroup(run.stream);
  // The group at hand is the insert itself: with a 1 the caller would take it for the next one for ever.
  if (!more) return more;
  for (; more && state.groupCode != 0; more = ReadGroup(run.stream)) {
    const char* value = state.groupValue;
    switch (state.groupCode) {
      case 2: TakeBody(state.blocks.FindFirst(value), bodyOffset); break;
      case 6:
        if (std::strcmp(value, "ByBlock") == 0) byBlockFlag = 1;  // this spelling alone
        break;
      case 8: TakeInsertLayer(value, byBlockFlag); break;
      case 10: x = Atof(value) * 100.0; break;
      case 20: y = Atof(value) * 100.0; break;
      case 41: state.insertScaleX = PositiveScale(value); break;
      case 42: state.insertScaleY = PositiveScale(value); break;
      case 50: state.insertAngle = Radians(value); break;
      case 62: state.entColor = ResolveColor(Atoi(value)); break;
      case 230:
        if (Atoi(value) == -1) x *= -1.0;  // a group 10 behind it takes that back
        break;
    }
  }
  // The colour isn't cleared in front of the groups: without one of its own, that of the entity before it
  // counts.
  MonochromeRule(state.entColor);

  Bookmark next;
  SetBookmark(next, run.stream);
  const int32_t result = DrawBlockEntities({run, x, y, state.entColor, byBlockFlag}, bodyOffset);
  ReturnTo(next, run.stream);
  return result;
}

int32_t DrawBlockInsert(const BlockRun& run) {
  const double outerAngle = state.insertAngle;
  const double outerScaleX = state.insertScaleX;
  const double outerScaleY = state.insertScaleY;
  int32_t bodyOffset = noBody;
  int32_t color = 0;  // nothing is inherited
  double x = 0.0;
  double y = 0.0;
  int32_t more = ReadGroup(run.stream);
  for (; more && state.groupCode != 0; more = ReadGroup(run.stream)) {
    const char* value = state.groupValue;
    switch (state.groupCode) {
      case 2: TakeBody(state.blocks.FindFirst(value), bodyOffset); break;
      // Scaled, but not turned by the block around it.
      case 10: x = BlockX(Atof(value), run.blockOriginX); break;
      case 20: y = BlockY(Atof(value), run.blockOriginY); break;
      case 41:
        if (Atof(value) != 0.0) state.insertScaleX *= Atof(value);
        break;
      case 42:
        if (Atof(value) != 0.0) state.insertScaleY *= Atof(value);
        break;
      case 50: state.insertAngle += Radians(value); break;
      case 62: color = Atoi(value); break;  // the number itself: 2 is yellow and 7 white here
    }
  }
  MonochromeRule(color);

  Bookmark next;
  SetBookmark(next, run.stream);
  DrawBlockEntities({run, x, y, color, run.byBlockFlag}, bodyOffset);
  ReturnTo(next, run.stream);
  state.insertAngle = outerAngle;
  state.insertScaleX = outerScaleX;
  state.insertScaleY = outerScaleY;
  return more;
}

int32_t DrawDimInsert(const EntityRun& run) {
  int32_t bodyOffset = noBody;
  double x = 0.0;
  double y = 0.0;
  state.dimColor = run.dimensionColor;
  int32_t more = ReadGroup(run.stream);
  if (!more) return more;  // as in DrawInsert
  for (; more && state.groupCode != 0; more = ReadGroup(run.stream)) {
    const char* value = state.groupValue;
    switch (state.groupCode) {
      case 2: TakeBody(state.blocks.FindFirst(value), bodyOffset); break;
      case 8: TakeDimInsertLayer(run.dimensionColor); break;
      case 10: x = Atof(value) * 100.0 + run.offsetX; break;
      case 20: y = Atof(value) * 100.0 + run.offsetY; break;
      case 41: state.insertScaleX = ScaleButZero(value); break;
      case 42: state.insertScaleY = ScaleButZero(value); break;
      case 50: state.insertAngle = Radians(value); break;
      case 62:
        if (Atoi(value) != 0) state.dimColor = ResolveColor(Atoi(value));
        break;
    }
  }

  Bookmark next;
  SetBookmark(next, run.stream);
  const int32_t result = DrawDimInsertEntities({run, x, y, state.dimColor}, bodyOffset);
  ReturnTo(next, run.stream);
  return result;
}

int32_t DrawDimInsertInsert(const BlockRun& run) {
  int32_t bodyOffset = noBody;
  int32_t color = 0;
  double x = 0.0;
  double y = 0.0;
  int32_t more = ReadGroup(run.stream);
  for (; more && state.groupCode != 0; more = ReadGroup(run.stream)) {
    const char* value = state.groupValue;
    switch (state.groupCode) {
      case 2: TakeBody(state.blocks.FindLast(value), bodyOffset); break;  // of blocks of one name the last
      case 10: x = Atof(value) * 100.0 + run.blockOriginX; break;
      case 20: y = Atof(value) * 100.0 + run.blockOriginY; break;
      case 41: state.insertScaleX = ScaleButZero(value); break;  // Y keeps the scale of the block around it
      case 50: state.insertAngle = Radians(value); break;
      case 62: color = ResolveColor(Atoi(value)); break;
    }
  }
  MonochromeRule(color);

  // Scale and angle stay for what follows in the block around it.
  Bookmark next;
  SetBookmark(next, run.stream);
  DrawBlockEntities({run, x, y, color}, bodyOffset);
  ReturnTo(next, run.stream);
  return more;
}

}  // namespace hexlume
