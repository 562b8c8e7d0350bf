#include "dialogs/toolkit/property_sheet.h"

#include <commctrl.h>

#include <algorithm>

#include "dialogs/toolkit/modal_run.h"
#include "dialogs/toolkit/wide_text.h"

namespace hexlume {

namespace {

std::wstring LoadCaption(UINT id) {
  CString caption;
  caption.LoadString(id);
  return WideText(caption);
}

}  // namespace

PROPSHEETPAGEW CPropertyPage::Description(CPropertySheet* sheet) {
  m_sheet = sheet;
  PROPSHEETPAGEW page = {};
  page.dwSize = sizeof page;
  page.hInstance = ModuleInstance();
  page.pszTemplate = MAKEINTRESOURCEW(m_templateId);
  page.pfnDlgProc = PageProc;
  page.lParam = reinterpret_cast<LPARAM>(this);
  return page;
}

INT_PTR CALLBACK CPropertyPage::PageProc(HWND window, UINT message, WPARAM, LPARAM lParam) {
  if (message != WM_INITDIALOG) return FALSE;
  const auto* description = reinterpret_cast<const PROPSHEETPAGEW*>(lParam);
  auto* page = reinterpret_cast<CPropertyPage*>(description->lParam);
  // The first page is created before PropertySheetW returns the sheet's window.
  if (!page->m_sheet->m_hWnd) page->m_sheet->SubclassWindow(::GetParent(window));
  page->m_beginning = true;
  const INT_PTR setFocus = page->Begin(window);
  page->m_beginning = false;
  return setFocus;
}

LRESULT CPropertyPage::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NOTIFY) {
    const LRESULT answer = OnNotify(*reinterpret_cast<const NMHDR*>(lParam));
    SetWindowLongPtrW(m_hWnd, DWLP_MSGRESULT, answer);
    return answer;
  }
  return CDialog::WindowProc(message, wParam, lParam);
}

LRESULT CPropertyPage::OnNotify(const NMHDR& notification) {
  switch (notification.code) {
    case static_cast<UINT>(PSN_KILLACTIVE): return !UpdateData(TRUE);
    case static_cast<UINT>(PSN_APPLY):
      OnOK();
      m_sheet->SetApplied(true);
      break;
    case static_cast<UINT>(PSN_RESET): m_sheet->SetApplied(false); break;
  }
  return PSNRET_NOERROR;
}

CPropertySheet::CPropertySheet(UINT captionId) : m_caption(LoadCaption(captionId)) {
  m_psh.dwSize = sizeof m_psh;
  m_psh.hInstance = ModuleInstance();
}

INT_PTR CPropertySheet::DoModal() {
  ModalRun run;
  std::vector<PROPSHEETPAGEW> pages;
  for (CPropertyPage* page : m_pages) pages.push_back(page->Description(this));
  // The system gets a modeless sheet; ModalRun makes it modal.
  m_psh.dwFlags |= PSH_PROPSHEETPAGE | PSH_MODELESS;
  m_psh.hwndParent = run.Owner();
  m_psh.pszCaption = m_caption.c_str();
  m_psh.nPages = static_cast<UINT>(pages.size());
  m_psh.ppsp = pages.data();
  PropertySheetW(&m_psh);
  return run.Run(*this);
}

int CPropertySheet::GetActiveIndex() const {
  const auto tabs = reinterpret_cast<HWND>(SendMessage(PSM_GETTABCONTROL));
  return tabs ? TabCtrl_GetCurSel(tabs) : -1;
}

CPropertyPage* CPropertySheet::GetActivePage() const {
  const int index = GetActiveIndex();
  return index >= 0 && index < static_cast<int>(m_pages.size()) ? m_pages[static_cast<size_t>(index)]
                                                                : nullptr;
}

BOOL CPropertySheet::SetActivePage(CPropertyPage* page) {
  const auto found = std::find(m_pages.begin(), m_pages.end(), page);
  // The system doesn't count a page until its WM_INITDIALOG returns, and would create it a second time.
  if (found == m_pages.end() || page->IsBeginning()) return FALSE;
  return SendMessage(PSM_SETCURSEL, static_cast<WPARAM>(found - m_pages.begin())) != 0;
}

BOOL CPropertySheet::PreTranslateMessage(MSG* message) {
  return PropSheet_IsDialogMessage(m_hWnd, message) != 0;
}

LRESULT CPropertySheet::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  const LRESULT result = CWnd::WindowProc(message, wParam, lParam);
  switch (message) {
    case WM_COMMAND:
    case WM_SYSCOMMAND:
    case WM_CLOSE:
    case PSM_PRESSBUTTON: EndIfClosed(); break;
    // A click on a tab, a message or a key can change the page.
    case WM_NOTIFY:
    case PSM_SETCURSEL:
    case PSM_ISDIALOGMESSAGE: TakeFocusFromHiddenPage(); break;
  }
  return result;
}

// A modeless sheet stays open after OK or Cancel, without a current page. PSM_GETRESULT isn't used: it
// reports changes that pages have declared, and these pages declare none.
void CPropertySheet::EndIfClosed() {
  if (SendMessage(PSM_GETCURRENTPAGEHWND) != 0) return;
  ModalRun::End(m_applied ? IDOK : IDCANCEL);
}

// When the page changes, the focus can stay on a control of the hidden page, which would then get the keys.
void CPropertySheet::TakeFocusFromHiddenPage() const {
  const auto active = reinterpret_cast<HWND>(SendMessage(PSM_GETCURRENTPAGEHWND));
  const HWND focus = GetFocus();
  const bool isHidden = std::any_of(m_pages.begin(), m_pages.end(), [&](const CPropertyPage* page) {
    return page->m_hWnd && page->m_hWnd != active && IsChild(page->m_hWnd, focus);
  });
  if (active && isHidden) SetFocus(GetNextDlgTabItem(active, nullptr, FALSE));
}

}  // namespace hexlume
