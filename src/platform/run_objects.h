// GDI objects that a run has left.
#pragma once

namespace hexlume {

// Deletes all objects of our own GDI, once no metafile is open: a fault can leave some that nobody else would delete. The
// system's GDI keeps those of a fault until the process ends.
void DeleteRunObjects();

}  // namespace hexlume
