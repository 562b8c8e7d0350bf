#include "dialogs/toolkit/dialog.h"

#include "dialogs/toolkit/modal_run.h"

namespace hexlume {

INT_PTR CDialog::DoModal() {
  ModalRun run;
  CreateDialogParamW(ModuleInstance(), MAKEINTRESOURCEW(m_templateId), run.Owner(), DialogProc,
                     reinterpret_cast<LPARAM>(this));
  return run.Run(*this);
}

INT_PTR CALLBACK CDialog::DialogProc(HWND window, UINT message, WPARAM, LPARAM lParam) {
  return message == WM_INITDIALOG ? reinterpret_cast<CDialog*>(lParam)->Begin(window) : FALSE;
}

INT_PTR CDialog::Begin(HWND window) {
  INT_PTR setFocus = TRUE;
  if (SubclassWindow(window)) ModalRun::Protect([&] { setFocus = OnInitDialog(); });
  return setFocus;
}

BOOL CDialog::OnInitDialog() {
  UpdateData(FALSE);
  return TRUE;
}

BOOL CDialog::UpdateData(BOOL saveAndValidate) {
  CDataExchange exchange = {saveAndValidate, this};
  DoDataExchange(&exchange);
  return TRUE;
}

BOOL CDialog::PreTranslateMessage(MSG* message) {
  return IsDialogMessageW(m_hWnd, message);
}

BOOL CDialog::OnCommand(WPARAM wParam, LPARAM lParam) {
  if (HIWORD(wParam) == BN_CLICKED && LOWORD(wParam) == IDOK) {
    OnOK();
    return TRUE;
  }
  if (HIWORD(wParam) == BN_CLICKED && LOWORD(wParam) == IDCANCEL) {
    OnCancel();
    return TRUE;
  }
  return CWnd::OnCommand(wParam, lParam);
}

void CDialog::OnOK() {
  if (UpdateData(TRUE)) EndDialog(IDOK);
}

void CDialog::OnCancel() {
  EndDialog(IDCANCEL);
}

void CDialog::EndDialog(int result) {
  ModalRun::End(result);
}

void DDX_Control(CDataExchange* exchange, int id, CWnd& control) {
  if (!control.m_hWnd) control.SubclassWindow(::GetDlgItem(exchange->m_pDlgWnd->m_hWnd, id));
}

void DDX_Text(CDataExchange* exchange, int id, CString& text) {
  if (exchange->m_bSaveAndValidate)
    exchange->m_pDlgWnd->GetDlgItem(id)->GetWindowText(text);
  else
    exchange->m_pDlgWnd->SetDlgItemText(id, text);
}

}  // namespace hexlume
