// The host library leaves the locale of the process as it is, also after a drawing with text.
#include <gtest/gtest.h>

#include <clocale>
#include <string>

#include "hexlume_host.hpp"
#include "host/host_drawings.h"

namespace hexlume {
namespace {

TEST(HostLocale, stays) {
  const std::string before = std::setlocale(LC_ALL, nullptr);
  EXPECT_TRUE(
      host::ConvertBytes(A3("0 TEXT\n10 10\n20 10\n40 5\n1 \x90\x7D\n0 MTEXT\n10 10\n20 50\n40 5\n1 A\n")));
  EXPECT_EQ(before, std::setlocale(LC_ALL, nullptr));
}

}  // namespace
}  // namespace hexlume
