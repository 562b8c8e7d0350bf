// Runs a program while a user presses OK on each of its dialogs: hexlume_press_ok PROGRAM [ARGUMENT ...]
// Ends with the program's exit status.
#include <windows.h>

#include <cstdio>
#include <cwchar>
#include <string>

namespace {

constexpr DWORD pause = 3;  // ms, between two looks

// What is after the first word of our own command line.
std::wstring CommandToRun() {
  const wchar_t* rest = GetCommandLineW();
  const wchar_t end = *rest == L'"' ? L'"' : L' ';
  if (*rest == L'"') ++rest;
  while (*rest != 0 && *rest != end) ++rest;
  if (*rest == L'"') ++rest;
  while (*rest == L' ') ++rest;
  return rest;
}

BOOL CALLBACK PressOk(HWND window, LPARAM programId) {
  DWORD owner = 0;
  GetWindowThreadProcessId(window, &owner);
  wchar_t className[16] = L"";
  GetClassNameW(window, className, 16);
  const bool isDialog = std::wcscmp(className, L"#32770") == 0;
  if (owner == static_cast<DWORD>(programId) && isDialog && IsWindowVisible(window)) {
    const HWND button = GetDlgItem(window, IDOK);
    PostMessageW(window, WM_COMMAND, MAKEWPARAM(IDOK, BN_CLICKED), reinterpret_cast<LPARAM>(button));
  }
  return TRUE;
}

}  // namespace

int main() {
  std::wstring command = CommandToRun();
  STARTUPINFOW start = {};
  start.cb = sizeof start;
  PROCESS_INFORMATION program = {};
  if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start,
                      &program)) {
    std::fprintf(stderr, "hexlume_press_ok: \"%ls\" can't be started\n", command.c_str());
    return 127;
  }
  while (WaitForSingleObject(program.hProcess, pause) == WAIT_TIMEOUT)
    EnumWindows(PressOk, static_cast<LPARAM>(program.dwProcessId));
  DWORD status = 0;
  GetExitCodeProcess(program.hProcess, &status);
  return static_cast<int>(status);
}
