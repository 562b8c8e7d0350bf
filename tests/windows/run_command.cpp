#include "support/run_command.h"

#include <windows.h>

#include <cstdlib>
#include <stdexcept>

namespace hexlume {

int RunCommand(const std::string& program, const std::string& arguments) {
  // Starts Wine's desktop, whose process would otherwise inherit the program's redirected files and keep them open.
  GetDesktopWindow();
  // The shell takes away the outermost pair of quotes.
  const std::string command = "\"\"" + program + "\" " + arguments + "\"";
  return std::system(command.c_str());
}

void GrowFile(const std::string& file, int64_t size) {
  const HANDLE handle =
      CreateFileA(file.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  LARGE_INTEGER end = {};
  end.QuadPart = size;
  const bool isGrown = SetFilePointerEx(handle, end, nullptr, FILE_BEGIN) && SetEndOfFile(handle);
  CloseHandle(handle);
  if (!isGrown) throw std::runtime_error("a file can't be made larger");
}

std::string JapaneseName() {
  // In code page 932; the second byte of the last character is that of a backslash.
  return "\x90\x7D\x96\xCA\x95\x5C";
}

std::string JapaneseMessage() {
  return "\u56F3\u9762\u8868";
}

}  // namespace hexlume
