// ATTRIB, in the ENTITIES section after the INSERT that it belongs to: a plain text in a fixed font.
#pragma once

#include <cstdint>

#include "entities/entity_run.h"

namespace hexlume {

int32_t DrawAttrib(const EntityRun& run);

}  // namespace hexlume
