#include "dialogs/size_dialog.h"

#include "dialogs/answers/dialog_answers.h"
#include "driver/conv_state.h"

namespace hexlume {

bool ShowSizeDialog() {
  state.scaleDenominator = dialogAnswers.scaleDenominator;
  return true;
}

}  // namespace hexlume
