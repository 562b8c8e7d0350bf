// A modal sheet of pages with tabs.
#pragma once

#include <windows.h>

#include <prsht.h>

#include <vector>

#include "dialogs/toolkit/dialog.h"

namespace hexlume {

class CPropertySheet;

// A page is made when it is shown first; one that the user never opens never gets a message.
class CPropertyPage : public CDialog {
 public:
  explicit CPropertyPage(UINT templateId) : CDialog(templateId) {}

  // The page's title is that of its template.
  PROPSHEETPAGEW Description(CPropertySheet* sheet);

  // While OnInitDialog goes on.
  bool IsBeginning() const { return m_beginning; }

 protected:
  // When the sheet is closed with OK.
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

  // IDOK or IDCANCEL; -1 if the window can't be made.
  INT_PTR DoModal();

  int GetActiveIndex() const;
  CPropertyPage* GetActivePage() const;
  BOOL SetActivePage(CPropertyPage* page);
  CPropertyPage* GetPage(size_t index) const { return m_pages[index]; }

  // The pages have taken the user's OK, or the sheet was cancelled after all.
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
