// Calls of all kinds in turn. What they leak is seen by the leak sanitizer, in the build that has it.
#include <gtest/gtest.h>

#include "host/host_calls.h"

namespace hexlume {
namespace {

TEST(HostResources, all_kinds_of_calls_give_their_status_in_any_order) {
  const HostCalls calls;
  EXPECT_NO_THROW(calls.Run(0, 3 * HostCalls::kinds));
}

}  // namespace
}  // namespace hexlume
