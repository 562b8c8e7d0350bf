// The one reader of a drawing's groups.
//
// Every reader and converter keeps to these rules, which make a single pass possible:
//   Entry        it is called with the group that named its entity (code 0) in the buffer, and first calls
//   ReadGroup. Look-ahead   it reads up to the next group with code 0 or the end of the file, leaves that
//   group in the buffer and
//                returns the result of its last ReadGroup. The caller looks at the buffer before it reads on.
//   Early return one that gives up in the middle of its groups returns at once, with the group at hand in the
//   buffer; the
//                caller skips the rest.
//   Re-entry     one that must run another part of the file keeps groupValue and Tell, lets the inner run
//   seek and read,
//                then seeks back and restores groupValue. groupCode stands at 0 on both sides.
#pragma once

#include <cstdint>

#include "driver/text_stream.h"

namespace hexlume {

// Bytes of a line with its closing 0. A longer line isn't an error: its rest is read as the next line, and
// the groups are out of step from there on.
constexpr int32_t groupLineLimit = 256;

// Reads the next group into groupCode and groupValue of the record. Returns 1, or 0 at the end of the file
// and once the run has ended; a file that ends within a group leaves its code in groupCode.
int32_t ReadGroup(TextStream& stream);

// Reads on to the next group with code 0. The same as ReadGroup again and again, but faster, as the groups
// before it don't go through the record. Returns 1, or 0 at the end of the file.
int32_t PassToEntity(TextStream& stream);

// Whether the group at hand has this code and exactly this value.
bool AtGroup(int32_t code, const char* value);

}  // namespace hexlume
