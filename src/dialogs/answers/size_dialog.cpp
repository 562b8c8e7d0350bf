#include "dialogs/size_dialog.h"

#include "dialogs/answers/dialog_answers.h"
#include "driver/conv_state.h"

namespace hexlume {

DialogResult ShowSizeDialog() {
  state.scaleDenominator = dialogAnswers.scaleDenominator;
  return DialogResult::ok;
}

}  // namespace hexlume
