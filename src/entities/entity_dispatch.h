// The walk over the ENTITIES section.
#pragma once

#include "entities/entity_run.h"

namespace hexlume {

// Entered right behind the section's name: sets up the canvas and draws each entity that has a converter, up
// to the section's end. An unknown entity is passed over group by group. Whatever fails in it comes out as
// `throw faultCode`.
void DrawEntities(const EntityRun& run);

// Whether the ENTITIES section draws the kind of entity that the group at hand names.
bool DrawsEntity();

}  // namespace hexlume
