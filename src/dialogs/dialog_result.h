// How a dialog ended.
#pragma once

namespace hexlume {

enum class DialogResult {
  ok,
  cancelled,
  notShown,  // no window could be created: the conversion continues as without dialogs
};

}  // namespace hexlume
