// Options whose meaning depends on the system: the answers to the dialogs, which these take only where they
// show no window.
#pragma once

#include <string>

#include "tools/hexlume/command/options.h"

namespace hexlume {

// Refuses answers that the dialogs can't take, if there are dialogs.
void CheckAnswersToDialogs(const Options& options);

}  // namespace hexlume
