#include "platform/run_objects.h"

namespace hexlume {

void DeleteRunObjects() {}

}  // namespace hexlume
