#include "tables/ltype_table.h"

#include <cstring>
#include <iterator>

#include "driver/bounded_copy.h"
#include "driver/group_reader.h"
#include "entities/converter_rules.h"

namespace hexlume {

namespace {

void StartLtypes() {
  state.ltypes = std::vector<LtypeEntry>(ltypeCount);
  for (const KnownLtype& known : knownLtypes) {
    LtypeEntry& ltype = state.ltypes[static_cast<size_t>(known.pattern)];
    BoundedCopy(ltype.name, known.record);
    ltype.elementCount = known.elementCount;
  }
}

// Returns null for an unknown name. An empty name doesn't match the slot without a name.
LtypeEntry* FindLtype(const char* name) {
  for (LtypeEntry& ltype : state.ltypes)
    if (ltype.name[0] != '\0' && std::strcmp(ltype.name, name) == 0) return &ltype;
  return nullptr;
}

// Called with the record's name in the buffer. Leaves the next record or the end of the table there. If
// skipFirst is set and the record has no element to skip, the first element of the next record is skipped.
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
          ltype.dashes[element++] = Hundredths(value) * ltScale / state.drawScale;
        break;
      case 73: {
        const int32_t count = Atoi(value);
        // If there is one element too many, the first is skipped.
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
