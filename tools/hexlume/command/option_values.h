// The values of options, read from their texts. All throw UsageError.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tools/hexlume/command/options.h"

namespace hexlume {

int32_t ParseNumber(const std::string& option, const std::string& text, int32_t least, int32_t most);

View ParseView(const std::string& text);

// A family of line types.
int32_t ParseFamily(const std::string& text);

// A number of bytes with K, M or G after it, or without.
int64_t ParseSize(const std::string& option, const std::string& text);

// Kinds of results, with commas between: nullptr for the metafile.
std::vector<const PictureKind*> ParseKinds(const std::string& text);

}  // namespace hexlume
