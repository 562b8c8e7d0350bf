#include "tools/hexlume/command/dialog_answers.h"
#include "tools/hexlume/command/options_system.h"

namespace hexlume {

void CheckAnswersToDialogs(const Options& options) {
  if (options.dialogAnswers.IsGiven())
    throw UsageError("--scale, --hide-layer and --hide-line-type answer without --dialogs");
}

void GiveDialogAnswers(const DialogAnswers&) {}

std::vector<std::string> UnknownHiddenLayers(const DialogAnswers&) {
  return {};
}

}  // namespace hexlume
