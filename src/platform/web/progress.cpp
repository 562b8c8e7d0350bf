#include "platform/web/progress.h"

// Numbers of JavaScript are doubles, which have all sizes of a drawing.
extern "C" __attribute__((import_module("page"), import_name("progress"))) int32_t PageProgress(
    int32_t pass, int32_t passes, double done, double total);

int32_t hexlume_page_progress(void*, int32_t pass, int32_t passes, int64_t done, int64_t total) {
  return PageProgress(pass, passes, static_cast<double>(done), static_cast<double>(total));
}

void* hexlume_page_progress_address(void) {
  return reinterpret_cast<void*>(hexlume_page_progress);
}
