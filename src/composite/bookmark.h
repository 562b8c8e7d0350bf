// The place in a drawing to which the loop over a block returns.
#pragma once

#include <cstdint>

#include "driver/bounded_copy.h"
#include "driver/conv_state.h"
#include "driver/text_stream.h"

namespace hexlume {

struct Bookmark {
  int32_t place;
  const KeptGroup* kept;
  char value[textSize];  // value of the current group
};

inline void SetBookmark(Bookmark& bookmark, const TextStream& stream) {
  bookmark.place = Tell(stream);
  bookmark.kept = stream.nextKept;
  BoundedCopy(bookmark.value, state.groupValue);
}

// groupCode isn't restored: it is 0 at the end of a block, as it is at the bookmark. If the end of the file
// cuts off the block, it is another code, and the entity at the bookmark is skipped.
inline void ReturnTo(const Bookmark& bookmark, TextStream& stream) {
  Seek(stream, bookmark.place);
  stream.nextKept = bookmark.kept;
  BoundedCopy(state.groupValue, bookmark.value);
  state.groupNumberIsKnown = 0;
  state.groupLine = nullptr;
}

}  // namespace hexlume
