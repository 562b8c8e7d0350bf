// A user of the dialogs: a second thread that finds the windows of this process, reads them, and works them
// with the mouse and the keyboard while the first one is in the library.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

namespace hexlume {

// Runs the call while the user acts; returns when both have ended. Nothing can hang: what doesn't come about
// in time ends the user's actions, dialogs that are left are closed, and a call that goes on even then ends
// the process. Returns what went wrong, "" if nothing did.
std::string RunWithUser(const std::function<void()>& call, const std::function<void()>& user);

// The rest is for the user's thread. What can't be done throws std::runtime_error.

// Waits until the condition holds; `what` names it in the complaint. Gives up as soon as the call has ended.
void WaitFor(const std::string& what, const std::function<bool()>& condition);

// Waits for a dialog of this process with this caption to be shown.
HWND WaitForDialog(const std::wstring& caption);
void WaitUntilGone(HWND window);

// The dialogs that are shown.
int CountDialogs();

// A message that is answered in time.
LRESULT Ask(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
std::wstring TextOf(HWND window);
RECT PlaceOf(HWND window);  // on the screen
HWND ControlOf(HWND dialog, int id);
RECT PlaceIn(HWND parent, HWND child);             // in the parent's points
RECT DialogUnits(HWND dialog, RECT placeInUnits);  // the same place in points
HWND FocusBeside(HWND window);                     // of the thread that the window belongs to

// The screen's dots per inch, and a distance that is given for 96 of them.
int Resolution();
int Scaled(int distance);

// Waits until a window of the dialog has the focus.
void WaitForFocus(HWND dialog);

// Real input, as from the devices: places are on the screen, keys go to the window with the focus.
void PointAt(POINT place);
void Click(POINT place);
void DoubleClick(POINT place);
void ClickMiddle(HWND window);
void Press(WORD key);
void PressTogether(WORD held, WORD key);
void ClickClose(HWND window);           // in its caption
void Type(const std::string& text);     // letters without accents, digits, '.' and '-'
void TypeCharacter(wchar_t character);  // any, as from an input method

void CopyToClipboard(const std::wstring& text);

}  // namespace hexlume
