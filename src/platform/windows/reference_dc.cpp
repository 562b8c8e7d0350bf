#include "platform/reference_dc.h"

#include <commdlg.h>

namespace hexlume {

HDC DefaultPrinterDC() {
  PRINTDLGA dialog = {};
  dialog.lStructSize = sizeof dialog;
  dialog.Flags = PD_RETURNDC | PD_RETURNDEFAULT;
  PrintDlgA(&dialog);
  if (dialog.hDevMode) GlobalFree(dialog.hDevMode);
  if (dialog.hDevNames) GlobalFree(dialog.hDevNames);
  return dialog.hDC;
}

}  // namespace hexlume
