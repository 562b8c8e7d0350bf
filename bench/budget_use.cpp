// How much of the budget of a conversion drawings use: hexlume_budget_use DRAWING... A drawing that is meant to be seen
// should be far from it. The names of many drawings can come from xargs.
#include <hexlume.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <string>

#include "driver/work_budget.h"
#include "platform/fault_guard.h"

namespace {

using namespace hexlume;

struct Use {
  int64_t steps, metafileBytes;
  double share;  // the larger one, in per cent
  uint32_t reached;
};

Use UseOf(const char* drawing, decltype(vzDXFMetaMake)* make) {
  HENHMETAFILE metafile = nullptr;
  try {
    GuardFaults([&] { make(drawing, &metafile, 0, 0, 0); });
  } catch (int32_t fault) {
    std::printf("%s: fault %d\n", drawing, fault);
  }
  DeleteEnhMetaFile(metafile);
  const double steps = static_cast<double>(work.steps) / static_cast<double>(work.mostSteps);
  const double bytes = static_cast<double>(work.metafileBytes) / static_cast<double>(work.mostMetafileBytes);
  return {work.steps, work.metafileBytes, 100 * std::max(steps, bytes), work.reached};
}

}  // namespace

int main(int count, char** drawings) {
  double most = 0;
  for (int i = 1; i < count; ++i) {
    for (const auto make : {vzDXFMetaMake, vzDXFFullSizeMetaMake}) {
      const Use use = UseOf(drawings[i], make);
      std::printf("%7.3f %% %14lld steps %12lld bytes, bounds %x  %s\n", use.share,
                  static_cast<long long>(use.steps), static_cast<long long>(use.metafileBytes), use.reached,
                  drawings[i]);
      most = std::max(most, use.share);
    }
  }
  std::printf("%7.3f %% at most\n", most);
}
