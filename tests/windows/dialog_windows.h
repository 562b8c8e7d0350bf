// The library's dialogs as their user sees them. All of it is for the user's thread.
#pragma once

#include <string>
#include <vector>

#include "windows/dialog_driver.h"

namespace hexlume {

// The sheet of layers and line types.
class SheetWindow {
 public:
  SheetWindow();  // waits for it, with the focus on it

  static constexpr int layers = 0, lines = 1;  // the pages

  void OpenPage(int page);  // by a click on its tab
  HWND Page() const;
  HWND List() const;
  HWND Tabs() const;

  std::vector<std::wstring> Rows() const;
  bool IsTicked(int row) const;  // by what is drawn
  int Selected() const;

  // Wait for it. Ticks: of the first rows, 'x' for each with a tick and '-' for each without one.
  void ExpectTicks(const std::string& ticks) const;
  void ExpectTick(int row, bool ticked) const;
  void ExpectSelected(int row) const;

  // The tooltip of this process that is shown, null if none is.
  static HWND Tip();

  void PointAtText(int row) const;
  void ClickBox(int row) const;
  void ClickText(int row) const;
  void DoubleClickText(int row) const;
  void DoubleClickBox(int row) const;

  void Ok() const;
  void Cancel() const;

  HWND window;

 private:
  RECT RowPlace(int row) const;  // on the screen
  POINT BoxPlace(int row) const;
  POINT TextPlace(int row) const;
};

// The dialog of the scale.
class SizeWindow {
 public:
  SizeWindow();  // waits for it, with the focus on it

  std::wstring Scale() const;
  std::wstring Width() const;
  std::wstring Height() const;
  HWND Combo() const;

  // Puts the caret into the field, after its text or with all of it selected.
  void GoBehindText() const;
  void SelectText() const;

  // Opens the list and chooses a row that is in sight.
  void ClickRow(int row) const;

  // Types, and waits until the field shows the text.
  void TypeAndSee(const std::string& typed, const std::wstring& shown) const;
  void PressAndSee(WORD key, const std::wstring& shown) const;
  void ExpectScale(const std::wstring& shown) const;

  void Ok() const;
  void Cancel() const;

  HWND window;
};

// Users who take the ticks off these rows by clicks on their boxes and press OK.
std::function<void()> Untick(const std::vector<int>& rows, int page = SheetWindow::layers);

// Answers OK to what is shown.
void PressOkOnSheet();
void PressOkOnSizeDialog();

}  // namespace hexlume
