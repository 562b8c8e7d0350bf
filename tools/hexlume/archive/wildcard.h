// Names with the wildcards * and ?, for shells that leave them to the program.
#pragma once

#include <string>
#include <vector>

namespace hexlume {

bool HasWildcard(const std::string& path);

// Whether a name matches a pattern. * is any number of characters, ? one character of UTF-8.
bool MatchesWildcard(const std::string& name, const std::string& pattern, bool ignoreCase);

// The files whose paths match, sorted. Wildcards may be in the names of folders too. Names that begin with a point
// match only a pattern that does.
std::vector<std::string> ExpandWildcards(const std::string& pattern);

}  // namespace hexlume
