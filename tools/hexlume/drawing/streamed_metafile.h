// A metafile that goes to its file in pieces while the library draws it, so that it takes no memory.
#pragma once

#include <memory>

#include "tools/hexlume/archive/job_plan.h"
#include "tools/hexlume/command/options.h"
#include "tools/hexlume/metafile/metafile_bytes.h"

namespace hexlume {

class StreamedMetafile {
 public:
  virtual ~StreamedMetafile() = default;  // removes what wasn't committed

  // Takes the metafile that the library begins next. A small one stays in the library's memory.
  virtual void Begin() = 0;

  // False if the file couldn't take the whole metafile. Then nothing is here, and it must be drawn again in memory.
  virtual bool End() = 0;

  // The bytes in the file. Empty if the metafile is in memory.
  virtual MetafileBytes Bytes() const = 0;

  // Gives the file its name. False if that can't be done. The bytes stay.
  virtual bool Commit() = 0;
};

// Null if the metafile of this job must be in memory: for other results besides it, for a pipe or a device, and on systems
// whose library draws in memory only.
std::unique_ptr<StreamedMetafile> StreamOf(const Job& job, const Options& options);

}  // namespace hexlume
