#include "tables/dim_style_table.h"

#include "driver/bounded_copy.h"
#include "driver/conv_state.h"
#include "driver/group_reader.h"

namespace hexlume {

namespace {

// Reads one record, up to the next group 0. The arrow is given by its name or by its handle; the later one
// replaces the other.
int32_t ReadDimStyleRecord(TextStream& stream, DimStyleEntry& style) {
  style = {};
  style.dimScale = 1.0;
  int32_t more = ReadGroup(stream);
  for (; more && state.groupCode != 0; more = ReadGroup(stream)) {
    const char* value = state.groupValue;
    switch (state.groupCode) {
      case 2: BoundedCopy(style.name, value); break;
      case 6:
        style.arrowBlock[0] = '_';
        BoundedCopy(style.arrowBlock + 1, sizeof style.arrowBlock - 1, value);
        style.arrowHandle[0] = '\0';
        break;
      case 40: style.dimScale = Atof(value); break;
      case 41: style.arrowSize = Atof(value); break;
      // A scale after this group isn't applied.
      case 140: style.textHeight = Hundredths(value) * style.dimScale; break;
      case 341:
        BoundedCopy(style.arrowHandle, value);
        style.arrowBlock[0] = '\0';
        break;
    }
  }
  return more;
}

}  // namespace

int32_t ReadDimStyleTable(TextStream& stream) {
  state.dimStyles = {};
  int32_t more = ReadGroup(stream);
  while (more && !AtGroup(0, "ENDTAB")) {
    if (!AtGroup(0, "DIMSTYLE")) {
      more = ReadGroup(stream);
      continue;
    }
    DimStyleEntry style;
    more = ReadDimStyleRecord(stream, style);
    state.dimStyles.Add(style);
  }
  return more;
}

}  // namespace hexlume
