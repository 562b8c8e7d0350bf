// Options that not every system has: the answers to the dialogs, where these show no window.
#pragma once

#include <string>
#include <vector>

// It would part the values of an option that may be repeated, and the names of drawings, at every comma.
#define CXXOPTS_VECTOR_DELIMITER '\0'
#include <cxxopts.hpp>

#include "tools/hexlume/options.h"

namespace hexlume {

struct OptionDeclaration {
  const char* name;
  const char* argument;  // its name in the help; nullptr for an option that takes none
  const char* help;
  bool repeatable = false;
};

// The options that this system has besides the others, in the order of the help.
const std::vector<OptionDeclaration>& SystemOptions();

// Reads them, once the others are read.
void ReadSystemOptions(const cxxopts::ParseResult& parsed, Options& options);

// The whole number in an option's text, or a UsageError.
int32_t ParseNumber(const std::string& option, const std::string& text, int32_t least, int32_t most);

}  // namespace hexlume
