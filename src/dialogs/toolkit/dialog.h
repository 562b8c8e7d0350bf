// A modal dialog made from a template of the module, and the exchange of its controls with its fields.
#pragma once

#include "dialogs/toolkit/wnd.h"

namespace hexlume {

class CDialog;

struct CDataExchange {
  BOOL m_bSaveAndValidate;  // TRUE from the controls to the fields
  CDialog* m_pDlgWnd;
};

class CDialog : public CWnd {
 public:
  explicit CDialog(UINT templateId) : m_templateId(templateId) {}

  // IDOK or IDCANCEL; -1 if the window can't be made.
  virtual INT_PTR DoModal();

  BOOL UpdateData(BOOL saveAndValidate = TRUE);
  BOOL PreTranslateMessage(MSG* message) override;

 protected:
  // The controls are there and not shown yet. Returns 0 if it has set the focus.
  virtual BOOL OnInitDialog();
  virtual void DoDataExchange(CDataExchange*) {}
  virtual void OnOK();
  virtual void OnCancel();

  void EndDialog(int result);
  BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;

  // The first message of a dialog, whose object it is made for: CDialog* as the parameter of the making.
  INT_PTR Begin(HWND window);

  const UINT m_templateId;

 private:
  static INT_PTR CALLBACK DialogProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
};

// The first exchange binds the control to its object.
void DDX_Control(CDataExchange* exchange, int id, CWnd& control);
void DDX_Text(CDataExchange* exchange, int id, CString& text);

}  // namespace hexlume
