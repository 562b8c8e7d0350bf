// What calls of the host library leave in the process: nothing. Not in the build with the leak sanitizer, as
// freed memory stays in its quarantine.
#include <gtest/gtest.h>

#include "host/host_calls.h"
#include "linux/process_resources.h"

namespace hexlume {
namespace {

TEST(HostMemory, six_thousand_calls_hold_no_more_than_two_thousand) {
  const HostCalls calls;
  calls.Run(0, 2000);
  const size_t settled = WorkingSet();
  calls.Run(2000, 6000);
  EXPECT_LE(WorkingSet(), settled + 256 * 1024);
}

}  // namespace
}  // namespace hexlume
