// The command line: a command with its options, and what it is applied to.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace hexlume::batch {

struct CommandOption {
  const char* name;      // without hyphens
  const char* argument;  // its name in the help; nullptr for an option that takes none
  const char* help;
  bool isShown;  // not for users otherwise
};

struct CommandForm {
  const char* name;
  const char* operands;
  const char* help;
  std::vector<CommandOption> options;
  bool takesConversion;  // options of hexlume
};

const std::vector<CommandForm>& Commands();

class CommandLine {
 public:
  // arguments begin after the command. Throws UsageError.
  CommandLine(const CommandForm& form, const std::vector<std::string>& arguments);

  bool Has(const std::string& option) const { return values.count(option) > 0; }
  std::optional<std::string> Text(const std::string& option) const;
  int32_t Number(const std::string& option, int32_t least, int32_t most, int32_t otherwise) const;

  // What isn't an option, and what is after "--".
  const std::vector<std::string>& Operands() const { return operands; }
  const std::vector<std::string>& Rest() const { return rest; }

  // The options of the conversion, in the form --NAME=VALUE.
  const std::vector<std::string>& Conversion() const { return conversion; }

 private:
  std::map<std::string, std::string> values;
  std::vector<std::string> operands, rest, conversion;
};

// An exit status and what it means.
struct ExitRow {
  int exit;
  const char* meaning;
};

const std::vector<ExitRow>& ExitRows();

// The options of hexlume that a plan takes, in their written forms.
std::vector<std::string> ConversionForms();

// How an option is written, for example "--out DIR".
std::string WrittenForm(const CommandOption& option);

// The help of the program.
std::string BatchHelp();

}  // namespace hexlume::batch
