// Calls from several threads at the same time.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "hexlume_host.hpp"
#include "host/host_drawings.h"
#include "support/threads.h"

namespace hexlume {
namespace {

constexpr int32_t threadCount = 4;
constexpr int32_t rounds = 40;

// Each thread has a drawing and options of its own, and gets what it gets alone.
TEST(HostThreads, calls_at_the_same_time_give_what_they_give_alone) {
  std::vector<std::string> drawings;
  std::vector<host::Options> options(threadCount);
  std::vector<std::string> alone;
  for (int32_t i = 0; i < threadCount; ++i) {
    drawings.push_back(A3(Lines(50 * (i + 1))));
    options[static_cast<size_t>(i)].turned = i % 2;
    options[static_cast<size_t>(i)].limit_strokes = i == 3 ? 17 : 0;
    alone.emplace_back(host::ConvertBytes(drawings.back(), options[static_cast<size_t>(i)]).Metafile());
  }
  std::vector<int32_t> different(threadCount, 0);
  RunThreads(threadCount, [&](int32_t thread) {
    const auto own = static_cast<size_t>(thread);
    for (int32_t round = 0; round < rounds; ++round) {
      const host::Result result = host::ConvertBytes(drawings[own], options[own]);
      if (result.Metafile() != alone[own]) ++different[own];
      const host::Result inspected = host::InspectBytes(drawings[own]);
      if (inspected.Entities().begin()->count != 50 * (thread + 1)) ++different[own];
    }
  });
  EXPECT_EQ(std::vector<int32_t>(threadCount, 0), different);
}

TEST(HostThreads, faults_and_cancels_of_one_thread_leave_the_others_alone) {
  const std::string good = A3(Lines(20));
  const std::string alone(host::ConvertBytes(good).Metafile());
  std::vector<int32_t> wrong(threadCount, 0);
  RunThreads(threadCount, [&](int32_t thread) {
    host::Options cancelling;
    cancelling.OnProgress([](int32_t, int32_t, int64_t, int64_t) { return false; });
    for (int32_t round = 0; round < rounds; ++round) {
      const bool sound = thread % 2 == 0
                             ? host::ConvertBytes(good).Metafile() == alone
                             : host::ConvertBytes(good, cancelling).Status() == HEXLUME_STATUS_CANCELLED;
      if (!sound) ++wrong[static_cast<size_t>(thread)];
    }
  });
  EXPECT_EQ(std::vector<int32_t>(threadCount, 0), wrong);
}

}  // namespace
}  // namespace hexlume
