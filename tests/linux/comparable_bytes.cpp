#include "support/comparable_bytes.h"

namespace hexlume {

std::string ComparableBytes(std::string metafile) {
  return metafile;
}

}  // namespace hexlume
