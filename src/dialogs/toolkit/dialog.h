// A modal dialog made from a template of the module, and the data exchange with its controls.
#pragma once

#include "dialogs/toolkit/wnd.h"

namespace hexlume {

class CDialog;

struct CDataExchange {
  BOOL m_bSaveAndValidate;  // TRUE: from the controls to the fields
  CDialog* m_pDlgWnd;
};

class CDialog : public CWnd {
 public:
  explicit CDialog(UINT templateId) : m_templateId(templateId) {}

  // Returns IDOK or IDCANCEL, or -1 if the window can't be created.
  virtual INT_PTR DoModal();

  BOOL UpdateData(BOOL saveAndValidate = TRUE);
  BOOL PreTranslateMessage(MSG* message) override;

 protected:
  // Called when the controls exist and the dialog isn't shown yet. Returns 0 if it has set the focus.
  virtual BOOL OnInitDialog();
  virtual void DoDataExchange(CDataExchange*) {}
  virtual void OnOK();
  virtual void OnCancel();

  void EndDialog(int result);
  BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;

  // Handles WM_INITDIALOG: attaches the object to its window and calls OnInitDialog.
  INT_PTR Begin(HWND window);

  const UINT m_templateId;

 private:
  static INT_PTR CALLBACK DialogProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
};

// Attaches the control to its object the first time it is called.
void DDX_Control(CDataExchange* exchange, int id, CWnd& control);
void DDX_Text(CDataExchange* exchange, int id, CString& text);

}  // namespace hexlume
