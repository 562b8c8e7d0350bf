// One drawing through the host library, for what the nine exports can't do.
#pragma once

#include <hexlume_host.hpp>

#include "tools/hexlume/command/options.h"
#include "tools/hexlume/drawing/convert.h"
#include "tools/hexlume/drawing/drawing_source.h"

namespace hexlume {

// format is one of the host library's.
host::Options HostOptionsOf(const Options& options, int32_t format);

// Calls the host library for a file or for bytes.
host::Result CallHost(host::Call::Function function, const DrawingSource& drawing,
                      const host::Options& options);

// The bytes of the metafile, with the result as their owner.
MetafileBytes BytesOf(host::Result result);

Conversion ConvertByHostLibrary(const DrawingSource& drawing, const Options& options, int32_t format);

}  // namespace hexlume
