#include "tools/hexlume/dialog_answers.h"
#include "tools/hexlume/options_system.h"

namespace hexlume {

const std::vector<OptionDeclaration>& SystemOptions() {
  static const std::vector<OptionDeclaration> none;
  return none;
}

void ReadSystemOptions(const cxxopts::ParseResult&, Options&) {}

void GiveDialogAnswers(const DialogAnswers&) {}

std::vector<std::string> UnknownHiddenLayers(const DialogAnswers&) {
  return {};
}

}  // namespace hexlume
