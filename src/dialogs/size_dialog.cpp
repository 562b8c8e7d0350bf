#include "dialogs/size_dialog.h"

#include <cstdint>
#include <cstring>
#include <string>

#include "dialogs/menu_font.h"
#include "dialogs/modal_result.h"
#include "dialogs/resource.h"
#include "dialogs/toolkit/combo_box.h"
#include "dialogs/toolkit/dialog.h"
#include "dialogs/toolkit/gdi_objects.h"
#include "driver/conv_state.h"
#include "platform/code_page_932.h"

namespace hexlume {

namespace {

constexpr int32_t denominators[] = {400, 300, 200, defaultDenominator, 50, 30, 20, 10, 5, 3, 1};
constexpr int defaultRow = 3;
static_assert(denominators[defaultRow] == defaultDenominator);

// Returns the byte index of the last character. The text must not be empty.
int LastCharacter(const CString& text) {
  const char* bytes = text;
  size_t start = 0;
  size_t next = 0;
  const auto length = static_cast<size_t>(text.GetLength());
  while (next < length) {
    start = next;
    next += CharacterBytes(bytes + start, length - start);
  }
  return static_cast<int>(start);
}

class CSizeDlg : public CDialog {
 public:
  CSizeDlg();

  BOOL PreTranslateMessage(MSG* message) override;

 protected:
  BOOL OnInitDialog() override;
  void DoDataExchange(CDataExchange* exchange) override;
  void OnOK() override;
  BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;

 private:
  void OnSelchangeScale();
  void OnEditupdateScale();
  void ShowSize();

  CComboBox m_combo;
  CString heightText;
  CString widthText;
  CFont dlgFont;
  int32_t typed = 0;  // 1 after the first WM_CHAR; nothing reads it
  CString scaleText;  // the denominator as text
};

CSizeDlg::CSizeDlg() : CDialog(IDD_SIZE) {}

void CSizeDlg::DoDataExchange(CDataExchange* exchange) {
  CDialog::DoDataExchange(exchange);
  DDX_Control(exchange, IDC_SCALE, m_combo);
  DDX_Text(exchange, IDC_HEIGHT, heightText);
  DDX_Text(exchange, IDC_WIDTH, widthText);
}

BOOL CSizeDlg::OnInitDialog() {
  CDialog::OnInitDialog();
  for (const int32_t denominator : denominators) m_combo.AddString(std::to_string(denominator).c_str());
  m_combo.SetCurSel(defaultRow);
  scaleText = std::to_string(denominators[defaultRow]);
  ShowSize();
  if (state.fontMode == 1) UseMenuFont(m_hWnd, dlgFont);
  return TRUE;
}

void CSizeDlg::ShowSize() {
  const double denominator = Atof(scaleText);
  CString size;
  size.Format("%.3f", state.sheetWidth / denominator);
  SetDlgItemText(IDC_WIDTH, size);
  size.Format("%.3f", state.sheetHeight / denominator);
  SetDlgItemText(IDC_HEIGHT, size);
}

BOOL CSizeDlg::OnCommand(WPARAM wParam, LPARAM lParam) {
  if (LOWORD(wParam) == IDC_SCALE && HIWORD(wParam) == CBN_SELCHANGE) {
    OnSelchangeScale();
    return TRUE;
  }
  if (LOWORD(wParam) == IDC_SCALE && HIWORD(wParam) == CBN_EDITUPDATE) {
    OnEditupdateScale();
    return TRUE;
  }
  return CDialog::OnCommand(wParam, lParam);
}

void CSizeDlg::OnSelchangeScale() {
  UpdateData(TRUE);
  const int row = m_combo.GetCurSel();
  if (row >= 0 && row < static_cast<int>(std::size(denominators)))
    scaleText = std::to_string(denominators[row]);
  ShowSize();
}

// Keeps the text a number from 1 to 1000 after each edit. An empty field becomes "1" at once, and a decimal
// point is removed as soon as it is typed.
void CSizeDlg::OnEditupdateScale() {
  m_combo.GetWindowText(scaleText);
  if (Atof(scaleText) < 1.0) {
    scaleText = "1";
    m_combo.SetWindowText(scaleText);
  }
  if (Atof(scaleText) > 1000.0) {
    scaleText = "1000";
    m_combo.SetWindowText(scaleText);
  }
  // Only the last character is checked; the characters before it are kept.
  const int last = LastCharacter(scaleText);
  const char* lastCharacter = scaleText + last;
  if (Atoi(lastCharacter) < 1 && std::strcmp(lastCharacter, "0") != 0) {
    scaleText.Truncate(last);
    m_combo.SetWindowText(scaleText);
  }
  m_combo.SetEditSel(scaleText.GetLength(), scaleText.GetLength());
  ShowSize();
  UpdateWindow();
}

void CSizeDlg::OnOK() {
  state.scaleDenominator = Atoi(scaleText);
  CDialog::OnOK();
}

BOOL CSizeDlg::PreTranslateMessage(MSG* message) {
  if (message->message == WM_CHAR) typed = 1;
  return CDialog::PreTranslateMessage(message);
}

}  // namespace

DialogResult ShowSizeDialog() {
  CSizeDlg dialog;
  return ResultOf(dialog.DoModal());
}

}  // namespace hexlume
