#include "host/drawing_reader.h"

#include <algorithm>
#include <cstring>

#include "composite/block_dispatch.h"
#include "driver/conv_state.h"
#include "driver/group_reader.h"
#include "driver/run_watch.h"
#include "entities/entity_dispatch.h"
#include "host/utf8.h"

namespace hexlume {

namespace {

bool IsText(const std::string& kind) {
  return kind == "TEXT" || kind == "MTEXT" || kind == "ATTRIB" || kind == "ATTDEF";
}

// A part of the entity before it.
bool IsPart(const std::string& kind) {
  return kind == "VERTEX" || kind == "SEQEND";
}

// The corner of a box that a header variable stores, by its first number; null for other variables.
double* CornerOf(hexlume_summary& summary, const char* variable) {
  if (std::strcmp(variable, "$LIMMIN") == 0) return summary.limits;
  if (std::strcmp(variable, "$LIMMAX") == 0) return summary.limits + 2;
  if (std::strcmp(variable, "$EXTMIN") == 0) return summary.extents;
  if (std::strcmp(variable, "$EXTMAX") == 0) return summary.extents + 2;
  return nullptr;
}

}  // namespace

DrawingReader::DrawingReader(TextStream& opened, const FormatChanges& noted, hexlume_result& filled)
    : stream(opened), changes(noted), result(filled), found(filled.inspection) {
  // As the measuring pass has found them.
  for (const LayerNameEntry& layer : state.layerNames) shownLayers.emplace(layer.name, layer.shown);
}

void DrawingReader::Read() {
  while ((more = ReadGroup(stream))) {
    if (AtGroup(0, "EOF")) endMarkSeen = true;
    if (!AtGroup(0, "SECTION")) continue;
    sectionsSeen = true;
    if (!(more = ReadGroup(stream))) break;
    if (AtGroup(2, "HEADER")) ReadHeader();
    if (AtGroup(2, "TABLES")) ReadTables();
    if (AtGroup(2, "BLOCKS")) ReadBlocks();
    if (AtGroup(2, "ENTITIES")) ReadEntities();
  }
  SortEntities();
}

void DrawingReader::ReadHeader() {
  more = ReadGroup(stream);
  while (more && !RunHasEnded() && !AtGroup(0, "ENDSEC")) {
    if (state.groupCode == 9)
      ReadHeaderVariable();
    else
      more = ReadGroup(stream);
  }
}

void DrawingReader::ReadHeaderVariable() {
  const bool isVersion = AtGroup(9, "$ACADVER");
  double* const corner = CornerOf(found.summary, state.groupValue);
  if (corner == found.summary.limits + 2) found.summary.has_limits |= 2;
  if (corner == found.summary.limits) found.summary.has_limits |= 1;
  if (corner == found.summary.extents + 2) found.summary.has_extents |= 2;
  if (corner == found.summary.extents) found.summary.has_extents |= 1;
  for (more = ReadGroup(stream); more && state.groupCode != 0 && state.groupCode != 9;
       more = ReadGroup(stream)) {
    if (isVersion && state.groupCode == 1) found.summary.version = Keep(state.groupValue);
    if (corner && state.groupCode == 10) corner[0] = Atof(state.groupValue);
    if (corner && state.groupCode == 20) corner[1] = Atof(state.groupValue);
  }
}

// Entered with the record's group 0 in the buffer; leaves the next one there.
void DrawingReader::ReadRecord() {
  record = {};
  record.kind = state.groupValue;
  record.line = LineOfGroup();
  drawn = DrawsEntity();
  drawnInBlocks = DrawsBlockEntity();
  for (more = ReadGroup(stream); more && state.groupCode != 0; more = ReadGroup(stream)) {
    const char* const value = state.groupValue;
    switch (state.groupCode) {
      case 1:
      case 3: record.text += value; break;
      case 2: record.name = value; break;
      case 6: record.lineType = value; break;
      case 8: record.layer = value; break;
      case 10: record.x = Atof(value); break;
      case 20: record.y = Atof(value); break;
      case 40: record.height = Atof(value); break;
      case 50: record.angle = Atof(value); break;
      case 62: record.color = Atoi(value); break;
      case 73: record.elements = Atoi(value); break;
    }
  }
}

void DrawingReader::ReadTables() {
  more = ReadGroup(stream);
  while (more && !RunHasEnded() && !AtGroup(0, "ENDSEC")) {
    if (state.groupCode != 0) {
      more = ReadGroup(stream);
      continue;
    }
    ReadRecord();
    NoteTableEntry();
  }
}

void DrawingReader::NoteTableEntry() {
  const char* const name = Keep(record.name);
  if (record.kind == "LAYER") {
    const auto shown = shownLayers.find(record.name);
    found.layers.push_back({sizeof(hexlume_layer), record.color, shown == shownLayers.end() || shown->second,
                            0, name, Keep(record.lineType)});
  } else if (record.kind == "LTYPE") {
    found.lineTypes.push_back({sizeof(hexlume_line_type), record.elements, name});
  } else if (record.kind == "DIMSTYLE") {
    found.dimStyles.push_back({sizeof(hexlume_dim_style), 0, name});
  }
}

void DrawingReader::ReadBlocks() {
  const char* block = nullptr;  // the one that is being read
  more = ReadGroup(stream);
  while (more && !RunHasEnded() && !AtGroup(0, "ENDSEC")) {
    if (state.groupCode != 0) {
      more = ReadGroup(stream);
      continue;
    }
    ReadRecord();
    if (record.kind == "BLOCK") {
      block = Keep(record.name);
      found.blocks.push_back({sizeof(hexlume_block), 0, 0, record.line, block});
    } else if (record.kind == "ENDBLK") {
      block = nullptr;
    } else if (block && !IsPart(record.kind)) {
      ++found.blocks.back().entities;
      NoteEntity(block);
    }
  }
}

void DrawingReader::ReadEntities() {
  entitiesSeen = true;
  more = ReadGroup(stream);
  while (more && !RunHasEnded() && !AtGroup(0, "ENDSEC")) {
    if (state.groupCode != 0) {
      more = ReadGroup(stream);
      continue;
    }
    if (AtGroup(0, "EOF")) endMarkSeen = true;
    ReadRecord();
    if (record.kind != "EOF" && !IsPart(record.kind)) NoteEntity(nullptr);
  }
}

// block is null in the ENTITIES section.
void DrawingReader::NoteEntity(const char* block) {
  hexlume_entities& row = EntitiesOfRecord();
  ++(block ? row.count_in_blocks : row.count);
  if (IsText(record.kind)) NoteText(block ? block : "");
}

hexlume_entities& DrawingReader::EntitiesOfRecord() {
  const auto [place, isNew] = entities.try_emplace({record.kind, record.layer});
  if (isNew)
    place->second = {sizeof(hexlume_entities), drawn, drawnInBlocks, 0, 0, 0, Keep(record.kind),
                     Keep(record.layer)};
  return place->second;
}

void DrawingReader::NoteText(const char* block) {
  found.texts.push_back({sizeof(hexlume_text), 0, record.line, record.x, record.y, record.height,
                         record.angle, Keep(record.kind), Keep(record.layer), block,
                         result.store.Keep(ToUtf8(record.text))});
}

// The line at which the group at hand begins.
int64_t DrawingReader::LineOfGroup() {
  const int32_t position = runWatch.position;
  const char* const bytes = stream.bytes;
  lines += std::count(bytes + linesPosition, bytes + position, '\n');
  linesPosition = position;
  while (leftOutIndex < changes.leftOut.size() && changes.leftOut[leftOutIndex].position <= position)
    lines += changes.leftOut[leftOutIndex++].lines;
  return lines + 1;
}

// The text in UTF-8; the same texts are kept once.
const char* DrawingReader::Keep(const std::string& inCodePage932) {
  const auto [place, isNew] = names.try_emplace(inCodePage932);
  if (isNew) place->second = result.store.Keep(ToUtf8(inCodePage932));
  return place->second;
}

// The map has them in order.
void DrawingReader::SortEntities() {
  for (const auto& [place, row] : entities) found.entities.push_back(row);
}

}  // namespace hexlume
