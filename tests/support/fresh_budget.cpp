// Gives each test a budget of its own, as each conversion has. Tests that call converters begin no conversion.
#include <gtest/gtest.h>

#include "driver/run_watch.h"
#include "driver/work_budget.h"

namespace hexlume {

namespace {

class FreshBudget : public testing::EmptyTestEventListener {
  void OnTestStart(const testing::TestInfo&) override {
    BeginWork();
    runWatch = {};
  }
};

[[maybe_unused]] const bool listens = [] {
  testing::UnitTest::GetInstance()->listeners().Append(new FreshBudget);
  return true;
}();

}  // namespace

}  // namespace hexlume
