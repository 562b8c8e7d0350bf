// Takes text and keeps none of it.
#pragma once

#include <streambuf>

namespace hexlume {

class Nowhere : public std::streambuf {
  int overflow(int byte) override { return byte; }
  std::streamsize xsputn(const char*, std::streamsize count) override { return count; }
};

}  // namespace hexlume
