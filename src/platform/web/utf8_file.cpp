#include "platform/utf8_file.h"

namespace hexlume {

// A page has no files: it gives the bytes of its drawings.
OpenedFile OpenUtf8File(const char*) {
  return {nullptr, FileTrouble::notFound, 0};
}

}  // namespace hexlume
