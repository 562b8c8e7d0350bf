// ATTRIB in the ENTITIES section, after its INSERT.
#pragma once

#include <cstdint>

#include "entities/entity_run.h"

namespace hexlume {

int32_t DrawAttrib(const EntityRun& run);

}  // namespace hexlume
