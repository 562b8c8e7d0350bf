// Handles of the host library's metafiles.
#include <gtest/gtest.h>
#include <windows.h>

#include "hexlume_host.hpp"
#include "host/host_drawings.h"

namespace hexlume {
namespace {

TEST(HostHandle, is_the_callers_own) {
  const host::Result result = host::ConvertBytes(A3(Line()));
  const auto first = static_cast<HENHMETAFILE>(result.Handle());
  const auto second = static_cast<HENHMETAFILE>(result.Handle());
  ASSERT_NE(nullptr, first);
  EXPECT_NE(first, second);
  EXPECT_EQ(result.Metafile().size(), GetEnhMetaFileBits(first, 0, nullptr));
  EXPECT_TRUE(DeleteEnhMetaFile(first));
  EXPECT_TRUE(DeleteEnhMetaFile(second));
}

TEST(HostHandle, there_is_none_without_a_metafile) {
  EXPECT_EQ(nullptr, host::ConvertBytes("no drawing").Handle());
}

}  // namespace
}  // namespace hexlume
