// The guard beside what a host has of the same: signal handlers, alternate stacks, masks and threads.
#include <gtest/gtest.h>
#include <pthread.h>
#include <setjmp.h>
#include <signal.h>
#include <unistd.h>

#include <cstring>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "composite/block_dispatch.h"
#include "platform/fault_guard.h"
#include "platform/host_exception.h"
#include "platform/stack_room.h"
#include "support/block_stream.h"

namespace hexlume::fault_guard_linux_test {
namespace {

constexpr int faultSignals[] = {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGTRAP};

volatile int* volatile nowhere = nullptr;
volatile int more = 1;

__attribute__((no_sanitize("undefined"))) void WriteNowhere() {
  *nowhere = 1;
}

__attribute__((noinline)) size_t Descend(size_t depth) {
  volatile char room[1024];
  room[depth % sizeof room] = 1;
  const size_t deeper = more ? Descend(depth + 1) : depth;
  return deeper + room[0];
}

void OverflowTheStack() {
  more = static_cast<int>(Descend(0)) | 1;
}

template <typename Loop>
int32_t Thrown(Loop loop) {
  try {
    GuardFaults([&] { loop(); });
  } catch (int32_t code) {
    return code;
  }
  return 0;
}

template <typename Run>
void OnAnotherThread(Run run) {
  std::thread(run).join();
}

// The C library sets a flag of its own in each handler that it installs, but not in the system's first one.
constexpr int libraryFlag = 0x04000000;

struct sigaction Standing(int signal) {
  struct sigaction handler = {};
  sigaction(signal, nullptr, &handler);
  handler.sa_flags &= ~libraryFlag;
  return handler;
}

bool SameMask(const sigset_t& one, const sigset_t& other) {
  for (int signal = 1; signal < SIGRTMAX; ++signal)
    if (sigismember(&one, signal) != sigismember(&other, signal)) return false;
  return true;
}

bool Same(const struct sigaction& one, const struct sigaction& other) {
  return one.sa_sigaction == other.sa_sigaction && one.sa_flags == other.sa_flags &&
         SameMask(one.sa_mask, other.sa_mask);
}

// A host that takes a signal of its own, and jumps back from a fault.
class HostHandler {
 public:
  explicit HostHandler(int signal) : signal(signal) {
    struct sigaction own = {};
    own.sa_sigaction = Take;
    own.sa_flags = SA_SIGINFO | SA_RESTART;
    sigaddset(&own.sa_mask, SIGUSR1);
    sigaction(signal, &own, &before);
    count = 0;
  }
  ~HostHandler() { sigaction(signal, &before, nullptr); }

  // Whether a fault ended run.
  template <typename Run>
  bool Ends(Run run) {
    if (sigsetjmp(landing, 1) != 0) return true;
    jumps = true;
    run();
    jumps = false;
    return false;
  }

  static inline volatile sig_atomic_t count;
  static inline volatile bool sawItsMask;

 private:
  static void Take(int, siginfo_t*, void*) {
    sigset_t mask;
    pthread_sigmask(SIG_SETMASK, nullptr, &mask);
    sawItsMask = sigismember(&mask, SIGUSR1) == 1;
    count = count + 1;
    if (!jumps) return;
    jumps = false;
    siglongjmp(landing, 1);
  }

  static inline volatile bool jumps = false;
  static inline sigjmp_buf landing;
  int signal;
  struct sigaction before;
};

TEST(FaultGuardOnLinux, the_handlers_are_afterwards_as_they_were) {
  const HostHandler host(SIGFPE);
  std::vector<struct sigaction> before;
  for (const int signal : faultSignals) before.push_back(Standing(signal));
  for (void (*const run)() : {+[] {}, WriteNowhere, OverflowTheStack, +[] { throw 1; }}) {
    Thrown(run);
    for (size_t i = 0; i < before.size(); ++i) EXPECT_TRUE(Same(before[i], Standing(faultSignals[i]))) << i;
  }
}

TEST(FaultGuardOnLinux, the_handlers_stand_until_the_last_thread_leaves_its_guard) {
  const struct sigaction before = Standing(SIGSEGV);
  EXPECT_EQ(0, Thrown([&] {
              OnAnotherThread([] { EXPECT_EQ(11, Thrown(WriteNowhere)); });
              EXPECT_FALSE(Same(before, Standing(SIGSEGV)));
              EXPECT_EQ(11, Thrown(WriteNowhere));
              EXPECT_FALSE(Same(before, Standing(SIGSEGV)));
            }));
  EXPECT_TRUE(Same(before, Standing(SIGSEGV)));
}

TEST(FaultGuardOnLinux, a_handler_that_the_host_puts_over_ours_stays) {
  const struct sigaction before = Standing(SIGILL);
  struct sigaction put = {};
  put.sa_handler = SIG_IGN;
  EXPECT_EQ(0, Thrown([&] { sigaction(SIGILL, &put, nullptr); }));
  EXPECT_EQ(SIG_IGN, Standing(SIGILL).sa_handler);
  sigaction(SIGILL, &before, nullptr);
}

TEST(FaultGuardOnLinux, the_alternate_stack_is_afterwards_as_it_was) {
  std::vector<char> memory(SIGSTKSZ);
  stack_t own = {}, before, after;
  own.ss_sp = memory.data();
  own.ss_size = memory.size();
  for (const int flags : {0, int{SS_DISABLE}}) {
    own.ss_flags = flags;
    sigaltstack(&own, &before);
    EXPECT_EQ(11, Thrown(OverflowTheStack));
    sigaltstack(&before, &after);
    EXPECT_EQ(flags, after.ss_flags);
    EXPECT_TRUE(flags == SS_DISABLE || own.ss_sp == after.ss_sp);
  }
}

TEST(FaultGuardOnLinux, the_mask_is_afterwards_as_it_was) {
  sigset_t blocked, before, after;
  sigfillset(&blocked);
  pthread_sigmask(SIG_SETMASK, &blocked, &before);
  pthread_sigmask(SIG_SETMASK, nullptr, &blocked);
  const int32_t thrown = Thrown(WriteNowhere) + Thrown([] {});
  pthread_sigmask(SIG_SETMASK, &before, &after);
  EXPECT_EQ(11, thrown);
  EXPECT_TRUE(SameMask(blocked, after));
}

TEST(FaultGuardOnLinux, a_fault_outside_a_guard_reaches_the_host) {
  HostHandler host(SIGSEGV);
  EXPECT_EQ(11, Thrown(WriteNowhere));
  EXPECT_EQ(0, HostHandler::count);
  EXPECT_TRUE(host.Ends(WriteNowhere));
  EXPECT_EQ(1, HostHandler::count);
}

TEST(FaultGuardOnLinux, a_fault_on_a_thread_without_a_guard_reaches_the_host_with_the_mask_that_it_asks_for) {
  HostHandler host(SIGSEGV);
  HostHandler::sawItsMask = false;
  EXPECT_EQ(0, Thrown([&] { OnAnotherThread([&] { EXPECT_TRUE(host.Ends(WriteNowhere)); }); }));
  EXPECT_EQ(1, HostHandler::count);
  EXPECT_TRUE(HostHandler::sawItsMask);
}

TEST(FaultGuardOnLinux, a_signal_that_is_sent_is_no_fault_and_reaches_the_host) {
  for (const int signal : faultSignals) {
    const HostHandler host(signal);
    EXPECT_EQ(0, Thrown([&] {
                raise(signal);
                kill(getpid(), signal);
              }));
    EXPECT_EQ(2, HostHandler::count);
  }
}

TEST(FaultGuardOnLinux, a_signal_that_the_host_ignores_stays_ignored) {
  const struct sigaction before = Standing(SIGBUS);
  signal(SIGBUS, SIG_IGN);
  EXPECT_EQ(0, Thrown([] { raise(SIGBUS); }));
  sigaction(SIGBUS, &before, nullptr);
}

TEST(FaultGuardOnLinux, without_a_handler_of_the_host_a_fault_on_a_thread_without_a_guard_ends_the_process) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_DEATH(Thrown([] { OnAnotherThread(WriteNowhere); }), "");
  EXPECT_DEATH(Thrown([] { raise(SIGFPE); }), "");
  EXPECT_DEATH(
      {
        signal(SIGSEGV, SIG_IGN);
        Thrown([] { OnAnotherThread(WriteNowhere); });
      },
      "");
}

TEST(FaultGuardOnLinux, each_thread_has_guards_of_its_own) {
  int32_t there = 0;
  EXPECT_EQ(11, Thrown([&] {
              OnAnotherThread([&] {
                for (int i = 0; i < 5; ++i) there += Thrown(OverflowTheStack);
              });
              WriteNowhere();
            }));
  EXPECT_EQ(55, there);
}

TEST(FaultGuardOnLinux, guards_of_many_threads_come_and_go_at_once) {
  const struct sigaction before = Standing(SIGSEGV);
  std::vector<int32_t> sums(8);
  std::vector<std::thread> threads;
  for (int32_t& sum : sums)
    threads.emplace_back([&sum] {
      for (int i = 0; i < 1000; ++i) sum += Thrown(WriteNowhere);
    });
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(std::vector<int32_t>(8, 11000), sums);
  EXPECT_TRUE(Same(before, Standing(SIGSEGV)));
}

TEST(HostException, it_is_thrown_as_an_int) {
  for (const int32_t code : {11, -1}) {
    int caught = 0;
    try {
      ThrowToHost(code);
    } catch (int thrown) {
      caught = thrown;
    }
    EXPECT_EQ(code, caught);
  }
}

// Blocks within blocks on the stack that a host has given its thread.

class SmallStack : public BlockStreamTest {
 protected:
  static void OnStackOf(size_t bytes, std::function<void()> run) {
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    ASSERT_EQ(0, pthread_attr_setstacksize(&attributes, bytes));
    pthread_t thread;
    const auto start = [](void* context) -> void* {
      (*static_cast<std::function<void()>*>(context))();
      return nullptr;
    };
    ASSERT_EQ(0, pthread_create(&thread, &attributes, start, &run));
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
  }

  // The listing of block A, and what ended it.
  std::string Draw() {
    OpenAt("0 CIRCLE\n");
    return ListCalls([this](Canvas canvas) {
      try {
        DrawBlockEntities({RunOn(canvas)}, BodyOf("A"));
      } catch (int32_t code) {
        thrown = code;
      }
    });
  }

  int32_t thrown = 0;
};

const std::string line = LineOf(Ends(10, 90, 30, 80));
const std::string stroke = Stroke(black, 1000, -1000, 3000, -2000);

TEST_F(SmallStack, there_is_room_on_it) {
  for (const size_t bytes : {128 * 1024, 256 * 1024, 1024 * 1024}) {
    bool hasRoom = false;
    OnStackOf(bytes, [&] { hasRoom = HasStackRoom(); });
    EXPECT_TRUE(hasRoom) << bytes;
  }
}

// In levels of 1 MB.
__attribute__((noinline)) size_t RoomInMegabytes(size_t level) {
  volatile char room[1024 * 1024];
  room[0] = 1;
  if (!HasStackRoom()) return level;
  return RoomInMegabytes(level + 1) + static_cast<size_t>(room[0]) - 1;
}

TEST_F(SmallStack, of_a_large_one_64_mb_are_used) {
  size_t deepest = 0;
  OnStackOf(256 * 1024 * 1024, [&] { deepest = RoomInMegabytes(0); });
  EXPECT_LE(62u, deepest);
  EXPECT_GE(65u, deepest);
}

TEST_F(SmallStack, some_blocks_in_blocks_are_drawn_on_it) {
  AddBlock("A", line + "0 INSERT\n2 B\n");
  AddBlock("B", line + "0 INSERT\n2 C\n");
  AddBlock("C", line);
  std::string strokes;
  OnStackOf(256 * 1024, [&] { strokes = Draw(); });
  EXPECT_EQ(0, thrown);
  EXPECT_EQ(stroke + stroke + stroke, strokes);
}

TEST_F(SmallStack, a_block_inside_itself_ends_on_it_as_a_fault_with_what_was_drawn) {
  AddBlock("A", line + "0 INSERT\n2 A\n");
  for (const size_t bytes : {128 * 1024, 256 * 1024, 1024 * 1024}) {
    thrown = 0;
    std::string strokes;
    OnStackOf(bytes, [&] { strokes = Draw(); });
    EXPECT_EQ(11, thrown) << bytes;
    EXPECT_EQ(0u, strokes.find(stroke + stroke + stroke)) << bytes;
  }
}

}  // namespace
}  // namespace hexlume::fault_guard_linux_test
