// Reads a drawing from its start to its end and notes what it contains.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <utility>

#include "driver/text_stream.h"
#include "host/recent_format.h"
#include "host/result.h"

namespace hexlume {

// One record of a section: an entity, a table's entry or a block's head.
struct DrawingRecord {
  std::string kind;
  std::string name;      // group 2
  std::string lineType;  // group 6
  std::string layer;     // group 8
  std::string text;      // groups 3 and 1, one after the other
  double x = 0.0, y = 0.0, height = 0.0, angle = 0.0;
  int32_t color = 0;     // group 62
  int32_t elements = 0;  // group 73
  int64_t line = 0;
};

class DrawingReader {
 public:
  // changes are those of the stream's source.
  DrawingReader(TextStream& stream, const FormatChanges& changes, hexlume_result& result);

  void Read();

  bool sectionsSeen = false;
  bool entitiesSeen = false;
  bool endMarkSeen = false;

 private:
  using Place = std::pair<std::string, std::string>;  // kind, layer

  void ReadHeader();
  void ReadTables();
  void ReadBlocks();
  void ReadEntities();
  void ReadHeaderVariable();
  void ReadRecord();
  void NoteTableEntry();
  void NoteEntity(const char* block);
  hexlume_entities& EntitiesOfRecord();
  void NoteText(const char* block);
  int64_t LineOfGroup();
  const char* Keep(const std::string& inCodePage932);
  void SortEntities();

  TextStream& stream;
  const FormatChanges& changes;
  hexlume_result& result;
  Inspection& found;
  int32_t more = 1;  // result of the last ReadGroup
  DrawingRecord record;
  bool drawn = false, drawnInBlocks = false;  // the record's kind
  std::map<std::string, int32_t> shownLayers;
  std::map<std::string, const char*> names;
  std::map<Place, hexlume_entities> entities;
  int64_t lines = 0;  // ends of lines before linesPosition
  int32_t linesPosition = 0;
  size_t leftOutIndex = 0;
};

}  // namespace hexlume
