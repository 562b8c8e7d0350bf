// INSERT: a block at a place, with a scale and an angle. Nested blocks are combined without a matrix:
// scales are multiplied and angles added, and a block inside a turned block turns about its own origin,
// whose place isn't turned.
#include "composite/insert.h"

#include <cstring>

#include "composite/block_dispatch.h"
#include "composite/bookmark.h"
#include "driver/bounded_copy.h"
#include "driver/group_reader.h"
#include "entities/converter_rules.h"

namespace hexlume {

namespace {

// Group 2. An unknown name keeps what an earlier group 2 has found.
void TakeBody(const BlockEntry* block, int32_t& bodyOffset) {
  if (block) bodyOffset = block->bodyOffset;
}

double Radians(const char* degrees) {
  return Atof(degrees) * pi / 180.0;
}

// A scale that isn't positive, such as that of a mirrored insert, is replaced by 1.
double PositiveScale(const char* value) {
  const double scale = Atof(value);
  return scale > 0.0 ? scale : 1.0;
}

// In the dimension scopes a negative scale mirrors the block.
double ScaleButZero(const char* value) {
  const double scale = Atof(value);
  return scale == 0.0 ? 1.0 : scale;
}

// An insert on an excluded layer is drawn all the same: each entity of the block is tested by itself.
void TakeInsertLayer(const char* name, int32_t& byBlockFlag) {
  BoundedCopy(state.insertLayer, name);
  if (std::strcmp(name, "0") == 0) byBlockFlag = 1;
  if (const LayerEntry* layer = FindLayer(name)) state.entColor = layer->color;
}

// Layer "0" is replaced by the dimension's layer, and its colour by the dimension's. If the table doesn't
// have that layer, the colour is left at -1 and passed on.
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
  // The current group is the INSERT itself: if this returned 1, the caller would process it again for ever.
  if (!more) return more;
  for (; more && state.groupCode != 0; more = ReadGroup(run.stream)) {
    const char* value = state.groupValue;
    switch (state.groupCode) {
      case 2: TakeBody(state.blocks.FindFirst(value), bodyOffset); break;
      case 6:
        if (std::strcmp(value, "ByBlock") == 0) byBlockFlag = 1;  // this spelling alone
        break;
      case 8: TakeInsertLayer(value, byBlockFlag); break;
      case 10: x = GroupHundredths(); break;
      case 20: y = GroupHundredths(); break;
      case 41: state.insertScaleX = PositiveScale(value); break;
      case 42: state.insertScaleY = PositiveScale(value); break;
      case 50: state.insertAngle = Radians(value); break;
      case 62: state.entColor = ResolveColor(Atoi(value)); break;
      case 230:
        if (Atoi(value) == -1) x *= -1.0;  // a group 10 after this one undoes it
        break;
    }
  }
  // The colour isn't cleared before the groups are read. Without a colour of its own, an insert has that of
  // the entity before it.
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
  int32_t color = 0;  // an insert in a block inherits no colour
  double x = 0.0;
  double y = 0.0;
  int32_t more = ReadGroup(run.stream);
  for (; more && state.groupCode != 0; more = ReadGroup(run.stream)) {
    const char* value = state.groupValue;
    switch (state.groupCode) {
      case 2: TakeBody(state.blocks.FindFirst(value), bodyOffset); break;
      // Scaled, but not turned by the enclosing block.
      case 10: x = BlockX(GroupNumber(), run.blockOriginX); break;
      case 20: y = BlockY(GroupNumber(), run.blockOriginY); break;
      case 41:
        if (GroupNumber() != 0.0) state.insertScaleX *= GroupNumber();
        break;
      case 42:
        if (GroupNumber() != 0.0) state.insertScaleY *= GroupNumber();
        break;
      case 50: state.insertAngle += Radians(value); break;
      case 62: color = Atoi(value); break;  // the number is used as an index: 2 is yellow and 7 white here
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
      case 10: x = GroupHundredths() + run.offsetX; break;
      case 20: y = GroupHundredths() + run.offsetY; break;
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
      case 2: TakeBody(state.blocks.FindLast(value), bodyOffset); break;  // the last block with this name
      case 10: x = GroupHundredths() + run.blockOriginX; break;
      case 20: y = GroupHundredths() + run.blockOriginY; break;
      case 41: state.insertScaleX = ScaleButZero(value); break;  // the Y scale isn't changed
      case 50: state.insertAngle = Radians(value); break;
      case 62: color = ResolveColor(Atoi(value)); break;
    }
  }
  MonochromeRule(color);

  // Scale and angle aren't restored: they apply to the rest of the enclosing block.
  Bookmark next;
  SetBookmark(next, run.stream);
  DrawBlockEntities({run, x, y, color}, bodyOffset);
  ReturnTo(next, run.stream);
  return more;
}

}  // namespace hexlume
