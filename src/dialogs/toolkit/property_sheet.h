// A modal property sheet.
#pragma once

#include <windows.h>

#include <prsht.h>

#include <vector>

#include "dialogs/toolkit/dialog.h"

namespace hexlume {

class CPropertySheet;

// A page is created when it is first shown; a page that the user never opens gets no message.
class CPropertyPage : public CDialog {
 public:
  explicit CPropertyPage(UINT templateId) : CDialog(templateId) {}

  // Describes the page to the system. Its title is the caption of its template.
  PROPSHEETPAGEW Description(CPropertySheet* sheet);

  // Whether OnInitDialog is running.
  bool IsBeginning() const { return m_beginning; }

 protected:
  // Called when the sheet is closed with OK.
  void OnOK() override {}
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  static INT_PTR CALLBACK PageProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT OnNotify(const NMHDR& notification);

  CPropertySheet* m_sheet = nullptr;
  bool m_beginning = false;
};

class CPropertySheet : public CWnd {
 public:
  explicit CPropertySheet(UINT captionId);

  PROPSHEETHEADERW m_psh = {};

  void AddPage(CPropertyPage* page) { m_pages.push_back(page); }

  // Returns IDOK or IDCANCEL, or -1 if the window can't be created.
  INT_PTR DoModal();

  int GetActiveIndex() const;
  CPropertyPage* GetActivePage() const;
  BOOL SetActivePage(CPropertyPage* page);
  CPropertyPage* GetPage(size_t index) const { return m_pages[index]; }

  // True after the pages have accepted OK, false after a cancel.
  void SetApplied(bool applied) { m_applied = applied; }

  BOOL PreTranslateMessage(MSG* message) override;

 protected:
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  void EndIfClosed();
  void TakeFocusFromHiddenPage() const;

  std::vector<CPropertyPage*> m_pages;
  bool m_applied = false;
  std::wstring m_caption;
};

}  // namespace hexlume
