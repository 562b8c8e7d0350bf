// The options that only some systems have: answers to the dialogs, where these have no windows.
#pragma once

#include <string>
#include <vector>

// The default delimiter, a comma, would split the names of layers and drawings.
#define CXXOPTS_VECTOR_DELIMITER '\0'
#include <cxxopts.hpp>

#include "tools/hexlume/options.h"

namespace hexlume {

struct OptionDeclaration {
  const char* name;
  const char* argument;  // its name in the help text; null if the option has none
  const char* help;
  bool repeatable = false;
};

// Returns the options of this system in addition to the common ones, in the order of the help text.
const std::vector<OptionDeclaration>& SystemOptions();

// Reads the options of this system. Called after the common ones are read.
void ReadSystemOptions(const cxxopts::ParseResult& parsed, Options& options);

// Parses an integer option. Throws UsageError if the text isn't an integer from least to most.
int32_t ParseNumber(const std::string& option, const std::string& text, int32_t least, int32_t most);

}  // namespace hexlume
