// The end of a process whose memory runs out where no exception can leave, such as in a destructor of another library.
#pragma once

namespace hexlume {

// From now on such a process says so after its name and exits with the status of no-memory.
void EndWhereMemoryRunsOut(const char* program);

}  // namespace hexlume
