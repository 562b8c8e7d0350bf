// The place in a drawing that a block's walk has to come back to.
#pragma once

#include <cstdint>

#include "driver/bounded_copy.h"
#include "driver/conv_state.h"
#include "driver/text_stream.h"

namespace hexlume {

struct Bookmark {
  int32_t place;
  char value[textSize];  // of the group at hand
};

inline void SetBookmark(Bookmark& bookmark, const TextStream& stream) {
  bookmark.place = Tell(stream);
  BoundedCopy(bookmark.value, state.groupValue);
}

// The group's code isn't put back: it is 0 at the end of a block as it is at the end of what stands in front
// of the bookmark. Behind a block that the end of the file cuts off it is another, and the entity at the
// bookmark is passed over.
inline void ReturnTo(const Bookmark& bookmark, TextStream& stream) {
  Seek(stream, bookmark.place);
  BoundedCopy(state.groupValue, bookmark.value);
}

}  // namespace hexlume
