#pragma once

#include <string>
#include <string_view>

namespace hexlume {

// The SHA-256 in hexadecimal digits; empty if the system can't compute it.
std::string Sha256(std::string_view bytes);

}  // namespace hexlume
