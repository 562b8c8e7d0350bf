// The progress of a call, for a function of the page.
#pragma once

#include <stdint.h>

extern "C" {

// A hexlume_progress, which calls the function "progress" that the module imports from "page".
int32_t hexlume_page_progress(void* user, int32_t pass, int32_t passes, int64_t done, int64_t total);

// The address of hexlume_page_progress, for hexlume_options: JavaScript can't take it.
void* hexlume_page_progress_address(void);
}
