// A process of the tool that converts drawings for another one, which gives them as messages on standard input. It answers
// each with a message on standard output.
#pragma once

#include "tools/hexlume/archive/job_plan.h"
#include "tools/hexlume/archive/message.h"
#include "tools/hexlume/drawing/drawing_run.h"

namespace hexlume {

// Returns the exit status, once the other process gives no more drawings.
int RunWorker();

// The messages as the other process sends and receives them. The first message has the arguments of the command line.
Message MessageOf(const Job& job);
DrawingResult ResultOf(const Message& message);

}  // namespace hexlume
