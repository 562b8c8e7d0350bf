// The short path of Atof, for the numbers of nearly all groups.
#pragma once

namespace hexlume {

// Parses digits with at most one point, at least one digit first or directly after the point. Returns false if the number
// has an exponent or too many digits for a correct result; value is unchanged then.
bool ParseShortNumber(const char* text, double& value);

}  // namespace hexlume
