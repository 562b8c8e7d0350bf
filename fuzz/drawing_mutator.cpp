#include "fuzz/drawing_mutator.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <iterator>
#include <vector>

#include "support/random_drawing.h"

namespace hexlume {

namespace {

// The views are into the drawing or into texts that the mutation keeps.
struct Group {
  std::string_view code, value;
};
using Groups = std::vector<Group>;

enum class Kind { keyword, name, text, handle, variable, real, angle, integer };

Kind KindOf(int32_t code) {
  if (code == 0) return Kind::keyword;
  if (code == 2 || code == 6 || code == 7 || code == 8) return Kind::name;
  if (code == 5 || code == 330 || code == 341) return Kind::handle;
  if (code == 9) return Kind::variable;
  if (code == 50 || code == 51 || code == 53) return Kind::angle;
  if ((code >= 60 && code < 100) || code == 290 || code == 370 || code == 1070) return Kind::integer;
  if (code < 10 || code == 1000) return Kind::text;
  return Kind::real;
}

const char* const keywords[] = {
    "SECTION", "ENDSEC", "EOF",      "TABLE",   "ENDTAB",     "BLOCK",  "ENDBLK",    "LAYER",  "LTYPE",
    "LINE",    "ARC",    "CIRCLE",   "ELLIPSE", "POINT",      "SOLID",  "TRACE",     "TEXT",   "DIMSTYLE",
    "MTEXT",   "ATTRIB", "POLYLINE", "VERTEX",  "LWPOLYLINE", "SPLINE", "SEQEND",    "INSERT", "BLOCK_RECORD",
    "LEADER",  "HATCH",  "ATTDEF",   "3DFACE",  "DIMENSION",  "IMAGE",  "TOLERANCE", "STYLE",  "VIEWPORT"};
const char* const names[] = {
    "0",          "A",          "B",       "",        "*D1",        "BOLT",     "TIP",      "_TIP",
    "SOLID",      "ANSI31",     "LAYER",   "LTYPE",   "DIMSTYLE",   "ENTITIES", "BLOCKS",   "TABLES",
    "HEADER",     "CONTINUOUS", "BYLAYER", "ByBlock", "CONTINUOS",  "DOT",      "DASHED",   "DASHED2",
    "HIDDEN",     "CENTER",     "DASHDOT", "BORDER2", "DASHDOTDOT", "DIVIDE",   "PHANTOM2", "*MODEL_SPACE",
    "_CLOSEDARW", "_OBLIQUE",   "_DOT",    "bolt",    "\x95\x5C",   "\x81\x40", "\x90",     "STANDARD"};
const char* const variables[] = {"$EXTMIN",  "$EXTMAX", "$LIMMIN", "$LIMMAX", "$ACADVER", "$DIMSCALE",
                                 "$LTSCALE", "$PDMODE", "$PDSIZE", "$DIMASZ", "$DIMTXT"};
const char* const handles[] = {"0", "1", "1F", "2A", "FFFFFFFFFFFFFFFF", "", "-1"};
const char* const reals[] = {"0",    "-0",         "1",           "-1",          "0.5",
                             "1E-7", "-1E-9",      "1E-300",      "1E300",       "-1E300",
                             "NAN",  "INF",        "-INF",        "1E999",       "",
                             "1d2",  "0x10",       ".",           "1000000",     "4.9E-324",
                             "1E10", "2147483647", "-2147483648", "21474836.47", "-21474836.48",
                             "9E18", "1e"};
const char* const angles[] = {"0",     "90",         "180",     "270",  "360",  "-90",
                              "45",    "44.99999",   "359.999", "720",  "1E10", "-0.01",
                              "-1E30", "89.9999999", "135",     "-360", "400",  "0.00001"};
const char* const integers[] = {"0",   "1",   "-1",    "2",     "3",          "4",          "7",
                                "8",   "16",  "20",    "32",    "64",         "128",        "99",
                                "255", "256", "32767", "65536", "2147483647", "-2147483648"};
const char* const textCodes[] = {"%%d",        "%%c",       "%%p",
                                 "%%u",        "%%o",       "%%%",
                                 "%%065",      "%%",        "\\P",
                                 "\\S1/2;",    "\\S1^ 2;",  "\\S1#2;",
                                 "\\H2x;",     "\\H5;",     "\\W0.5;",
                                 "\\Q15;",     "\\T2;",     "\\A1;",
                                 "\\C1;",      "\\L",       "\\O",
                                 "\\l",        "\\U+2220",  "\\U+3042",
                                 "\\U+",       "\\M+182A0", "\\fArial|b1|i0;",
                                 "{",          "}",         "\\{",
                                 "\\\\",       "^J",        "^ ",
                                 "^I",         "\\~",       "%%v",
                                 "{\\Fgdt;j}", "\x82\xA0",  "\x95\x5C",
                                 "\x81",       "\xB1",      ";",
                                 "\\",         "|",         "AB 12"};
const int32_t codes[] = {0,  1,  2,  3,   5,   6,   7,   8,   9,   10,  11,   12,   13,  14, 15, 20,
                         21, 22, 23, 24,  25,  30,  39,  40,  41,  42,  43,   44,   45,  46, 49, 50,
                         51, 53, 62, 66,  70,  71,  72,  73,  74,  75,  77,   78,   79,  90, 91, 92,
                         93, 97, 98, 101, 140, 230, 290, 330, 341, 370, 1000, 1040, 1070};

// Small and the same everywhere.
class Chance {
 public:
  explicit Chance(uint32_t seed) : state(seed * 2654435769u + 1) {}
  uint32_t Below(size_t end) { return end == 0 ? 0 : static_cast<uint32_t>(Next() % end); }
  bool Percent(uint32_t percent) { return Below(100) < percent; }
  template <typename Item, size_t count>
  Item OneOf(const Item (&items)[count]) {
    return items[Below(count)];
  }
  uint32_t Next() {
    state = state * 6364136223846793005u + 1442695040888963407u;
    return static_cast<uint32_t>(state >> 33);
  }

 private:
  uint64_t state;
};

std::string_view TakeLine(std::string_view& text) {
  const size_t end = std::min(text.find('\n'), text.size());
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  return line;
}

Groups GroupsOf(std::string_view drawing) {
  Groups groups;
  while (!drawing.empty()) {
    const std::string_view code = TakeLine(drawing);
    groups.push_back({code, TakeLine(drawing)});
  }
  return groups;
}

int32_t CodeOf(const Group& group) {
  char digits[12];
  const size_t size = std::min(group.code.size(), sizeof digits - 1);
  std::copy_n(group.code.data(), size, digits);
  digits[size] = '\0';
  return std::atoi(digits);
}

bool BeginsRecord(const Group& group) {
  return CodeOf(group) == 0;
}

struct Range {
  size_t first, end;
  size_t Size() const { return end - first; }
};

class Mutation {
 public:
  Mutation(std::string_view drawing, uint32_t seed) : chance(seed), groups(GroupsOf(drawing)) {}

  void Change();
  void TakePieces(std::string_view otherDrawing);
  std::string Text(size_t mostBytes) const;

 private:
  // Single groups.
  void DropGroups();
  void RepeatGroup();
  void SwapGroups();
  void ShuffleRecord();
  void ChangeCode();
  void ChangeValue();
  void CopyValue();
  void InsertGroups();
  // Records: entities, entries of tables, heads of blocks.
  void DropRecord();
  void RepeatRecord();
  void MoveRecord();
  void InsertRecord();
  void WrapInBlock();
  void ReferToBlock();
  // From one SECTION, TABLE or BLOCK to the next.
  void RepeatPart();
  void DropPart();
  void SwapParts();

  std::string_view Keep(std::string text);
  std::string_view NewValue(int32_t code, std::string_view old);
  std::string ChangedNumber(std::string_view old);
  std::string ChangedText(std::string_view old);
  size_t Somewhere() { return chance.Below(groups.size()); }
  Range SomeRecord();
  Range SomePart();
  size_t StartOfRecord();
  Groups Taken(Range range) const;
  void Insert(size_t place, const Groups& inserted);
  void Erase(Range range);

  Chance chance;
  Groups groups;
  std::deque<std::string> kept;
};

std::string_view Mutation::Keep(std::string text) {
  kept.push_back(std::move(text));
  return kept.back();
}

Groups Mutation::Taken(Range range) const {
  const auto at = [this](size_t i) { return groups.begin() + static_cast<std::ptrdiff_t>(i); };
  return {at(range.first), at(range.end)};
}

void Mutation::Insert(size_t place, const Groups& inserted) {
  groups.insert(groups.begin() + static_cast<std::ptrdiff_t>(std::min(place, groups.size())),
                inserted.begin(), inserted.end());
}

void Mutation::Erase(Range range) {
  groups.erase(groups.begin() + static_cast<std::ptrdiff_t>(range.first),
               groups.begin() + static_cast<std::ptrdiff_t>(range.end));
}

Range Mutation::SomeRecord() {
  size_t first = Somewhere();
  while (first > 0 && !BeginsRecord(groups[first])) --first;
  size_t end = std::min(first + 1, groups.size());
  while (end < groups.size() && !BeginsRecord(groups[end])) ++end;
  return {first, end};
}

Range Mutation::SomePart() {
  const auto begins = [this](size_t i) {
    const std::string_view value = groups[i].value;
    const auto is = [value](std::string_view keyword) { return value.substr(0, keyword.size()) == keyword; };
    return BeginsRecord(groups[i]) && (is("SECTION") || is("TABLE") || is("BLOCK"));
  };
  size_t first = Somewhere();
  while (first > 0 && !begins(first)) --first;
  size_t end = std::min(first + 1, groups.size());
  while (end < groups.size() && !begins(end)) ++end;
  return {first, end};
}

size_t Mutation::StartOfRecord() {
  return SomeRecord().first;
}

void Mutation::DropGroups() {
  const size_t first = Somewhere();
  Erase({first, std::min(first + 1 + chance.Below(chance.Percent(80) ? 1 : 4), groups.size())});
}

void Mutation::RepeatGroup() {
  const size_t place = Somewhere();
  const size_t count = chance.Percent(90) ? 1 + chance.Below(3) : 1 + chance.Below(60);
  Insert(place, Groups(count, groups[place]));
}

void Mutation::SwapGroups() {
  const size_t place = Somewhere();
  const size_t other =
      chance.Percent(80) ? std::min(place + 1 + chance.Below(4), groups.size() - 1) : Somewhere();
  std::swap(groups[place], groups[other]);
}

void Mutation::ShuffleRecord() {
  const Range range = SomeRecord();
  for (size_t i = range.first + 1; i < range.end; ++i)
    std::swap(groups[i], groups[i + chance.Below(range.end - i)]);
}

void Mutation::ChangeCode() {
  Group& group = groups[Somewhere()];
  const int32_t old = CodeOf(group);
  int32_t code = chance.OneOf(codes);
  if (chance.Percent(40)) code = old + (chance.Percent(50) ? 1 : -1) * (chance.Percent(50) ? 10 : 1);
  group.code = Keep(std::to_string(code));
}

std::string Mutation::ChangedNumber(std::string_view old) {
  const double number = std::atof(std::string(old).c_str());
  static const double factors[] = {-1.0, 0.1, 10.0, 100.0, 0.5, 2.0, 1e6, 1.0 + 1e-9, 1e-3};
  static const double steps[] = {1.0, -1.0, 0.01, -0.01, 0.005, -0.005, 1e-6, 100.0, -100.0, 297.0, 420.0};
  const double changed = chance.Percent(50) ? number * chance.OneOf(factors) : number + chance.OneOf(steps);
  char text[64];
  std::snprintf(text, sizeof text,
                chance.Percent(60)   ? "%.10g"
                : chance.Percent(50) ? "%.0f"
                                     : "%.3f",
                std::clamp(changed, -1e40, 1e40));
  return text;
}

std::string Mutation::ChangedText(std::string_view old) {
  std::string text(old);
  const size_t place = chance.Below(text.size() + 1);
  switch (chance.Below(5)) {
    case 0: text.erase(place, 1 + chance.Below(8)); break;
    case 1: text.insert(place, text.substr(0, 100)); break;
    case 2: text.insert(place, std::string(1 + chance.Below(300), "A%\\{\x82"[chance.Below(5)])); break;
    default: text.insert(place, chance.OneOf(textCodes)); break;
  }
  return text.substr(0, 700);
}

std::string_view Mutation::NewValue(int32_t code, std::string_view old) {
  switch (KindOf(code)) {
    case Kind::keyword: return chance.OneOf(keywords);
    case Kind::name: return chance.Percent(85) ? chance.OneOf(names) : Keep(ChangedText(old));
    case Kind::text: return chance.Percent(85) ? Keep(ChangedText(old)) : chance.OneOf(names);
    case Kind::handle: return chance.OneOf(handles);
    case Kind::variable: return chance.OneOf(variables);
    case Kind::angle: return chance.Percent(60) ? chance.OneOf(angles) : Keep(ChangedNumber(old));
    case Kind::integer: return chance.Percent(70) ? chance.OneOf(integers) : Keep(ChangedNumber(old));
    case Kind::real: break;
  }
  return chance.Percent(40) ? chance.OneOf(reals) : Keep(ChangedNumber(old));
}

void Mutation::ChangeValue() {
  Group& group = groups[Somewhere()];
  group.value = NewValue(CodeOf(group), group.value);
}

// A value of the same kind from elsewhere: references find what they name, and points meet.
void Mutation::CopyValue() {
  Group& group = groups[Somewhere()];
  const Kind kind = KindOf(CodeOf(group));
  for (int32_t tries = 0; tries < 20; ++tries) {
    const Group& other = groups[Somewhere()];
    if (KindOf(CodeOf(other)) != kind || other.value == group.value) continue;
    group.value = other.value;
    return;
  }
}

void Mutation::InsertGroups() {
  const size_t place = Somewhere();
  Groups inserted;
  for (uint32_t count = 1 + chance.Below(3); count > 0; --count) {
    const int32_t code = chance.OneOf(codes);
    inserted.push_back({Keep(std::to_string(code)), NewValue(code, "1")});
  }
  Insert(place, inserted);
}

void Mutation::DropRecord() {
  Erase(SomeRecord());
}

void Mutation::RepeatRecord() {
  const Groups record = Taken(SomeRecord());
  const size_t place = StartOfRecord();
  for (uint32_t count = chance.Percent(90) ? 1 : 1 + chance.Below(10); count > 0; --count)
    Insert(place, record);
}

void Mutation::MoveRecord() {
  const Range range = SomeRecord();
  const Groups record = Taken(range);
  Erase(range);
  Insert(groups.empty() ? 0 : StartOfRecord(), record);
}

void Mutation::InsertRecord() {
  const std::string_view record = Keep(RandomRecord(chance.Next()));
  Insert(StartOfRecord(), GroupsOf(record));
}

// Puts records into a block and inserts it in their place.
void Mutation::WrapInBlock() {
  const Range range = SomeRecord();
  const Groups record = Taken(range);
  const std::string_view name = chance.OneOf(names);
  Groups block = {{"0", "BLOCK"}, {"2", name}, {"10", "0"}, {"20", "0"}};
  block.insert(block.end(), record.begin(), record.end());
  block.push_back({"0", "ENDBLK"});
  const auto isBlocks = [](const Group& group) {
    return CodeOf(group) == 2 && group.value.substr(0, 6) == "BLOCKS";
  };
  const auto section = std::find_if(groups.begin(), groups.end(), isBlocks);
  const bool hasSection = section != groups.end();
  const auto place = hasSection ? static_cast<size_t>(section - groups.begin()) + 1 : 0;
  Erase(range);
  const char* const inserters[] = {"INSERT", "DIMENSION", "INSERT", "LEADER"};
  Insert(range.first, {{"0", chance.OneOf(inserters)}, {"8", "0"}, {"2", name}, {"10", "10"}, {"20", "10"}});
  if (!hasSection) {
    block.insert(block.begin(), {{"0", "SECTION"}, {"2", "BLOCKS"}});
    block.push_back({"0", "ENDSEC"});
  }
  Insert(place, block);
}

void Mutation::ReferToBlock() {
  const Range block = SomePart();
  std::string_view name = chance.OneOf(names);
  for (size_t i = block.first; i < block.end; ++i)
    if (CodeOf(groups[i]) == 2) name = groups[i].value;
  const char* const places[] = {"0", "10", "-20", "200", "1E6"};
  const char* const scales[] = {"1", "-1", "0", "0.5", "1E-8", "-3", "1E8"};
  Groups insert = {{"0", chance.Percent(70) ? "INSERT" : "DIMENSION"},
                   {"2", name},
                   {"10", chance.OneOf(places)},
                   {"20", chance.OneOf(places)}};
  if (chance.Percent(50)) insert.push_back({"41", chance.OneOf(scales)});
  if (chance.Percent(50)) insert.push_back({"42", chance.OneOf(scales)});
  if (chance.Percent(50)) insert.push_back({"50", chance.OneOf(angles)});
  Insert(StartOfRecord(), insert);
}

void Mutation::RepeatPart() {
  const Range part = SomePart();
  if (part.Size() > 200) return;
  const Groups repeated = Taken(part);
  Insert(SomePart().first, repeated);
}

void Mutation::DropPart() {
  Erase(SomePart());
}

void Mutation::SwapParts() {
  const Range part = SomePart();
  const Groups moved = Taken(part);
  Erase(part);
  if (groups.empty())
    groups = moved;
  else
    Insert(SomePart().first, moved);
}

void Mutation::Change() {
  struct Row {
    uint32_t weight;
    void (Mutation::*change)();
  };
  static const Row rows[] = {
      {24, &Mutation::ChangeValue}, {8, &Mutation::CopyValue},    {7, &Mutation::DropGroups},
      {5, &Mutation::RepeatGroup},  {5, &Mutation::SwapGroups},   {4, &Mutation::ShuffleRecord},
      {6, &Mutation::ChangeCode},   {8, &Mutation::InsertGroups}, {5, &Mutation::DropRecord},
      {5, &Mutation::RepeatRecord}, {3, &Mutation::MoveRecord},   {10, &Mutation::InsertRecord},
      {3, &Mutation::WrapInBlock},  {3, &Mutation::ReferToBlock}, {1, &Mutation::RepeatPart},
      {1, &Mutation::DropPart},     {1, &Mutation::SwapParts},
  };
  if (groups.empty()) groups = GroupsOf(Keep(RandomRecord(chance.Next())));
  uint32_t all = 0;
  for (const Row& row : rows) all += row.weight;
  uint32_t left = chance.Below(all);
  const Row* row = rows;
  while (left >= row->weight) left -= row++->weight;
  (this->*row->change)();
}

void Mutation::TakePieces(std::string_view otherDrawing) {
  Mutation other(otherDrawing, chance.Next());
  if (other.groups.empty()) return;
  for (uint32_t count = 1 + chance.Below(4); count > 0; --count) {
    const bool isPart = chance.Percent(20);
    const Groups piece = other.Taken(isPart ? other.SomePart() : other.SomeRecord());
    Insert(groups.empty() ? 0 : isPart ? SomePart().first : StartOfRecord(), piece);
  }
}

std::string Mutation::Text(size_t mostBytes) const {
  std::string text;
  for (const Group& group : groups) {
    const size_t size = group.code.size() + group.value.size() + 2;
    if (text.size() + size > mostBytes) break;
    text.append(group.code).push_back('\n');
    text.append(group.value).push_back('\n');
  }
  return text;
}

}  // namespace

std::string ChangedDrawing(std::string_view drawing, size_t mostBytes, uint32_t seed) {
  Mutation mutation(drawing, seed);
  for (uint32_t changes = 1 + (seed >> 7) % 4; changes > 0; --changes) mutation.Change();
  return mutation.Text(mostBytes);
}

std::string CrossedDrawing(std::string_view drawing, std::string_view other, size_t mostBytes,
                           uint32_t seed) {
  Mutation mutation(drawing, seed);
  mutation.TakePieces(other);
  return mutation.Text(mostBytes);
}

}  // namespace hexlume
