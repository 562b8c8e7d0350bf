// How a dialog ended.
#pragma once

namespace hexlume {

enum class DialogResult {
  ok,
  cancelled,
  notShown,  // no window can be made: the conversion goes on as without dialogs
};

}  // namespace hexlume
