// What the tool says of itself.
#pragma once

#include <string>

namespace hexlume {

std::string HelpText();

}  // namespace hexlume
