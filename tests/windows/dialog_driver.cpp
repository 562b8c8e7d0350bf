#include "windows/dialog_driver.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <stdexcept>

namespace hexlume {

namespace {

constexpr DWORD patience = 15000;  // ms, for whatever should come about
constexpr DWORD step = 5;          // ms, between two looks

// One user at a time.
HANDLE callEnded;

// The user's last click; none yet on the dialogs of a new session.
struct LastClick {
  DWORD time = 0;
  LONG x = -100, y = -100;
} lastClick;

struct Session {
  const std::function<void()>& user;
  std::string complaint;
};

bool HasCallEnded() {
  return WaitForSingleObject(callEnded, 0) == WAIT_OBJECT_0;
}

struct Search {
  const wchar_t* caption;  // null for any
  HWND found;
  int count;
};

BOOL CALLBACK LookAtWindow(HWND window, LPARAM parameter) {
  auto& search = *reinterpret_cast<Search*>(parameter);
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  wchar_t className[16] = L"";
  GetClassNameW(window, className, 16);
  const bool isDialog = std::wstring(className) == L"#32770";
  if (process != GetCurrentProcessId() || !isDialog || !IsWindowVisible(window)) return TRUE;
  wchar_t caption[64] = L"";
  // What the system keeps of a caption: no message to a window that may be busy.
  InternalGetWindowText(window, caption, 64);
  if (search.caption && std::wstring(caption) != search.caption) return TRUE;
  search.found = window;
  ++search.count;
  return TRUE;
}

Search FindDialogs(const wchar_t* caption) {
  Search search = {caption, nullptr, 0};
  EnumWindows(LookAtWindow, reinterpret_cast<LPARAM>(&search));
  return search;
}

std::string Utf8(const std::wstring& text) {
  char bytes[256] = "";
  WideCharToMultiByte(CP_UTF8, 0, text.c_str(), -1, bytes, sizeof bytes, nullptr, nullptr);
  return bytes;
}

// So that a test fails and the next one can run.
void CloseWhatIsLeft() {
  if (WaitForSingleObject(callEnded, patience) == WAIT_OBJECT_0) return;
  for (int tries = 0; tries < 50; ++tries) {
    if (const HWND left = FindDialogs(nullptr).found) PostMessageW(left, WM_CLOSE, 0, 0);
    if (WaitForSingleObject(callEnded, 100) == WAIT_OBJECT_0) return;
  }
  std::fprintf(stderr, "a conversion doesn't return from its dialogs: giving up\n");
  std::fflush(stderr);
  TerminateProcess(GetCurrentProcess(), 3);
}

DWORD WINAPI UserThread(void* parameter) {
  auto& session = *static_cast<Session*>(parameter);
  try {
    session.user();
    if (WaitForSingleObject(callEnded, patience) != WAIT_OBJECT_0)
      session.complaint = "a dialog is left open";
  } catch (const std::exception& error) {
    session.complaint = error.what();
    // Nobody will answer any more.
    if (const HWND left = FindDialogs(nullptr).found) PostMessageW(left, WM_CLOSE, 0, 0);
  }
  CloseWhatIsLeft();
  return 0;
}

INPUT MouseEvent(POINT place, DWORD flags) {
  const int width = GetSystemMetrics(SM_CXSCREEN);
  const int height = GetSystemMetrics(SM_CYSCREEN);
  INPUT input = {};
  input.type = INPUT_MOUSE;
  // The screen is 65536 wide and high; rounded up, as the system rounds down.
  input.mi.dx = (place.x * 65536 + width - 1) / width;
  input.mi.dy = (place.y * 65536 + height - 1) / height;
  input.mi.dwFlags = flags | MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_MOVE;
  return input;
}

INPUT KeyEvent(WORD key, DWORD flags) {
  INPUT input = {};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = key;
  input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
  input.ki.dwFlags = flags;
  return input;
}

void Send(INPUT input) {
  if (SendInput(1, &input, sizeof input) != 1) throw std::runtime_error("the system takes no input");
}

void PressAndRelease(POINT place) {
  Send(MouseEvent(place, 0));
  Send(MouseEvent(place, MOUSEEVENTF_LEFTDOWN));
  Send(MouseEvent(place, MOUSEEVENTF_LEFTUP));
}

// Keys go to the foreground. After a window has gone it can take a moment until that is ours again.
void WaitForKeyboard() {
  WaitFor("window in the foreground", [] {
    DWORD process = 0;
    GetWindowThreadProcessId(GetForegroundWindow(), &process);
    return process == GetCurrentProcessId();
  });
}

// What the screen reports about windows and the pointer includes the keys that are down, and it doesn't know ours:
// a held one would count as released. So everything that it has to report comes first.
void LetTheScreenReport() {
  const HWND window = GetForegroundWindow();
  for (int round = 0; round < 2; ++round) {
    const HDC screen = GetDC(nullptr);
    GetPixel(screen, 0, 0);  // an answer to it comes after all else
    ReleaseDC(nullptr, screen);
    Ask(window, WM_NULL);
  }
}

// Two clicks that follow each other fast in one place would be a double click.
void LetTheLastClickPass(POINT place) {
  const DWORD since = GetTickCount() - lastClick.time;
  const DWORD pause = GetDoubleClickTime() + 50;
  const bool isNear = std::abs(place.x - lastClick.x) < 10 && std::abs(place.y - lastClick.y) < 10;
  if (isNear && since < pause) Sleep(pause - since);
  lastClick = {GetTickCount(), place.x, place.y};
}

WORD KeyOf(char letter) {
  if (letter == '.') return VK_OEM_PERIOD;
  if (letter == '-') return VK_OEM_MINUS;
  if (letter >= 'a' && letter <= 'z') return static_cast<WORD>(letter - 'a' + 'A');
  return static_cast<WORD>(letter);
}

}  // namespace

std::string RunWithUser(const std::function<void()>& call, const std::function<void()>& user) {
  Session session = {user, ""};
  lastClick = {};
  callEnded = CreateEventW(nullptr, TRUE, FALSE, nullptr);
  const HANDLE thread = CreateThread(nullptr, 0, UserThread, &session, 0, nullptr);
  try {
    call();
  } catch (const std::exception& error) {
    session.complaint = error.what();
  }
  SetEvent(callEnded);
  WaitForSingleObject(thread, INFINITE);
  CloseHandle(thread);
  CloseHandle(callEnded);
  return session.complaint;
}

void WaitFor(const std::string& what, const std::function<bool()>& condition) {
  for (DWORD start = GetTickCount(); !condition(); Sleep(step)) {
    if (HasCallEnded()) throw std::runtime_error("the conversion has ended: no " + what);
    if (GetTickCount() - start > patience) throw std::runtime_error("in time there was no " + what);
  }
}

HWND WaitForDialog(const std::wstring& caption) {
  HWND dialog = nullptr;
  WaitFor("dialog " + Utf8(caption), [&] {
    dialog = FindDialogs(caption.c_str()).found;
    return dialog != nullptr;
  });
  // What is still to be done before it waits for the user comes before this answer.
  Ask(dialog, WM_NULL);
  return dialog;
}

void WaitUntilGone(HWND window) {
  for (DWORD start = GetTickCount(); IsWindow(window) && IsWindowVisible(window); Sleep(step))
    if (GetTickCount() - start > patience) throw std::runtime_error("a dialog doesn't go away");
}

int CountDialogs() {
  return FindDialogs(nullptr).count;
}

LRESULT Ask(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  DWORD_PTR answer = 0;
  if (!SendMessageTimeoutW(window, message, wParam, lParam, SMTO_NORMAL, patience, &answer))
    throw std::runtime_error("a window doesn't answer");
  return static_cast<LRESULT>(answer);
}

std::wstring TextOf(HWND window) {
  wchar_t text[512] = L"";
  Ask(window, WM_GETTEXT, std::size(text), reinterpret_cast<LPARAM>(text));
  return text;
}

RECT PlaceOf(HWND window) {
  RECT place = {};
  GetWindowRect(window, &place);
  return place;
}

HWND ControlOf(HWND dialog, int id) {
  const HWND control = GetDlgItem(dialog, id);
  if (!control) throw std::runtime_error("a dialog has no control " + std::to_string(id));
  return control;
}

RECT PlaceIn(HWND parent, HWND child) {
  RECT place = PlaceOf(child);
  MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&place), 2);
  return place;
}

RECT DialogUnits(HWND dialog, RECT placeInUnits) {
  MapDialogRect(dialog, &placeInUnits);
  return placeInUnits;
}

HWND FocusBeside(HWND window) {
  GUITHREADINFO info = {};
  info.cbSize = sizeof info;
  GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &info);
  return info.hwndFocus;
}

int Resolution() {
  const HDC screen = GetDC(nullptr);
  const int dotsPerInch = GetDeviceCaps(screen, LOGPIXELSY);
  ReleaseDC(nullptr, screen);
  return dotsPerInch;
}

int Scaled(int distance) {
  return MulDiv(distance, Resolution(), 96);
}

void WaitForFocus(HWND dialog) {
  WaitFor("focus on a dialog", [&] { return IsChild(dialog, FocusBeside(dialog)); });
}

void PointAt(POINT place) {
  Send(MouseEvent(place, 0));
}

void Click(POINT place) {
  LetTheLastClickPass(place);
  PressAndRelease(place);
}

void DoubleClick(POINT place) {
  LetTheLastClickPass(place);
  PressAndRelease(place);
  PressAndRelease(place);
}

void ClickMiddle(HWND window) {
  const RECT place = PlaceOf(window);
  Click({(place.left + place.right) / 2, (place.top + place.bottom) / 2});
}

void Press(WORD key) {
  WaitForKeyboard();
  Send(KeyEvent(key, 0));
  Send(KeyEvent(key, KEYEVENTF_KEYUP));
}

void PressTogether(WORD held, WORD key) {
  WaitForKeyboard();
  LetTheScreenReport();
  // In one call, so that nothing that the screen reports can come between them and release the held key.
  INPUT inputs[] = {KeyEvent(held, 0), KeyEvent(key, 0), KeyEvent(key, KEYEVENTF_KEYUP),
                    KeyEvent(held, KEYEVENTF_KEYUP)};
  constexpr UINT count = static_cast<UINT>(std::size(inputs));
  if (SendInput(count, inputs, sizeof inputs[0]) != count)
    throw std::runtime_error("the system takes no input");
}

void ClickClose(HWND window) {
  const RECT place = PlaceOf(window);
  // From the right end of the caption, where the button is on every system.
  for (POINT at = {place.right - 1, place.top + 12}; at.x > place.left; --at.x) {
    if (Ask(window, WM_NCHITTEST, 0, MAKELPARAM(at.x, at.y)) != HTCLOSE) continue;
    return Click({at.x - 3, at.y});
  }
  throw std::runtime_error("a dialog has no button to close it");
}

void Type(const std::string& text) {
  for (const char letter : text) Press(KeyOf(letter));
}

void TypeCharacter(wchar_t character) {
  INPUT input = {};
  input.type = INPUT_KEYBOARD;
  input.ki.wScan = character;
  input.ki.dwFlags = KEYEVENTF_UNICODE;
  Send(input);
  input.ki.dwFlags |= KEYEVENTF_KEYUP;
  Send(input);
}

void CopyToClipboard(const std::wstring& text) {
  const size_t bytes = (text.size() + 1) * sizeof(wchar_t);
  const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes);
  std::memcpy(GlobalLock(memory), text.c_str(), bytes);
  GlobalUnlock(memory);
  // It belongs to a window, and is the system's from then on.
  const HWND owner = CreateWindowW(L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
  const bool isCopied = OpenClipboard(owner) && EmptyClipboard() && SetClipboardData(CF_UNICODETEXT, memory);
  CloseClipboard();
  DestroyWindow(owner);
  if (!isCopied) throw std::runtime_error("the clipboard takes no text");
}

}  // namespace hexlume
