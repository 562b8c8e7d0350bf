// The loop over the ENTITIES section.
#pragma once

#include "entities/entity_run.h"

namespace hexlume {

// Called when the section's name has been read. Sets up the canvas and draws each entity that has
// a converter, up to the end of the section. Unknown entities are skipped. Any failure is reported
// as `throw faultCode`.
void DrawEntities(const EntityRun& run);

// Whether the ENTITIES section draws the kind of entity that the group at hand names.
bool DrawsEntity();

}  // namespace hexlume
