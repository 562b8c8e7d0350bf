// The bounds of a conversion in words.
#pragma once

#include <cstdint>

#include "driver/work_budget.h"
#include "host/status_text.h"

namespace hexlume {

// The short name of a bound. Null for a number that is none.
const char* BoundName(int32_t bound);

// What was left out. Null for a number that is none.
const Sentence* BoundSentence(int32_t bound);

}  // namespace hexlume
