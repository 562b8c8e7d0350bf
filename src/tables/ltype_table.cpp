#include "tables/ltype_table.h"

#include <cstring>
#include <iterator>

#include "driver/bounded_copy.h"
#include "driver/group_reader.h"

namespace hexlume {

namespace {

struct LtypeSlot {
  const char* name;  // of the record that defines it
  int32_t elementCount;
};

const LtypeSlot ltypeSlots[ltypeCount] = {
    // name, elements
    {"DOT", 2},         //
    {"DASH", 2},        //
    {"DASHED", 2},      //
    {"DASHED2", 2},     //
    {"HIDDEN", 2},      //
    {"DASHDOT", 4},     //
    {"CENTER", 4},      //
    {"CENTER2", 4},     //
    {"BORDER2", 4},     //
    {"DASHDOTDOT", 6},  //
    {"DIVIDE", 6},      //
    {"PHANTOM2", 6},    // in the place of PHANTOM: a record of that name isn't taken in
    {"", 6},            // and so no record can define this one
};

void StartLtypes() {
  state.ltypes = std::vector<LtypeEntry>(ltypeCount);
  for (size_t slot = 0; slot < state.ltypes.size(); ++slot) {
    BoundedCopy(state.ltypes[slot].name, ltypeSlots[slot].name);
    state.ltypes[slot].elementCount = ltypeSlots[slot].elementCount;
  }
}

// Null for a name that the library doesn't know. No name at all isn't that of the slot without one.
LtypeEntry* FindLtype(const char* name) {
  for (LtypeEntry& ltype : state.ltypes)
    if (ltype.name[0] != '\0' && std::strcmp(ltype.name, name) == 0) return &ltype;
  return nullptr;
}

// Entered with the record's name in the buffer; leaves the next record or the table's end there. An element
// that is to be skipped and isn't there is skipped in the next record.
int32_t ReadLtypeRecord(TextStream& stream, LtypeEntry& ltype, double ltScale, bool& skipFirst) {
  size_t element = 0;
  int32_t more = ReadGroup(stream);
  for (; more && !AtGroup(0, "LTYPE") && !AtGroup(0, "ENDTAB"); more = ReadGroup(stream)) {
    const char* value = state.groupValue;
    switch (state.groupCode) {
      case 49:
        if (skipFirst)
          skipFirst = false;
        else if (element < std::size(ltype.dashes))
          ltype.dashes[element++] = Atof(value) * 100.0 * ltScale / state.drawScale;
        break;
      case 73: {
        const int32_t count = Atoi(value);
        // One more than there should be, and the first one is taken to be too many.
        if (count == ltype.elementCount + 1) skipFirst = true;
        if (count == ltype.elementCount || count == ltype.elementCount + 1) ltype.defined = 1;
        break;
      }
    }
  }
  return more;
}

}  // namespace

int32_t ReadLtypeTable(TextStream& stream, const HeaderVars& headerVars) {
  StartLtypes();
  bool skipFirst = false;
  int32_t more = ReadGroup(stream);
  while (more && !AtGroup(0, "ENDTAB")) {
    LtypeEntry* ltype = state.groupCode == 2 ? FindLtype(state.groupValue) : nullptr;
    more = ltype ? ReadLtypeRecord(stream, *ltype, headerVars.ltScale, skipFirst) : ReadGroup(stream);
  }
  return more;
}

}  // namespace hexlume
