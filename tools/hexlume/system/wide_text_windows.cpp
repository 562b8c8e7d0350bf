#include <windows.h>

#include "tools/hexlume/system/wide_text.h"

namespace hexlume {
namespace {

std::wstring FullPath(const std::wstring& path) {
  const DWORD size = GetFullPathNameW(path.c_str(), 0, nullptr, nullptr);
  std::wstring full(size, L'\0');
  full.resize(size == 0 ? 0 : GetFullPathNameW(path.c_str(), size, full.data(), nullptr));
  return full;
}

}  // namespace

std::wstring WideText(const std::string& text) {
  std::wstring wide(text.size(), L'\0');
  wide.resize(static_cast<size_t>(MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()),
                                                      wide.data(), static_cast<int>(wide.size()))));
  return wide;
}

std::string Utf8Text(const std::wstring& text) {
  constexpr size_t mostBytesOfUnit = 3;
  std::string utf8(text.size() * mostBytesOfUnit, '\0');
  utf8.resize(
      static_cast<size_t>(WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()),
                                              utf8.data(), static_cast<int>(utf8.size()), nullptr, nullptr)));
  return utf8;
}

std::wstring WidePath(const std::string& path) {
  // A folder leaves room for a name of 8 and 3 characters.
  constexpr size_t longest = MAX_PATH - 13;
  const std::wstring wide = WideText(path);
  if (wide.size() <= longest || wide.compare(0, 2, L"\\\\") == 0) return wide;
  const std::wstring full = FullPath(wide);
  if (full.empty()) return wide;
  return full.compare(0, 2, L"\\\\") == 0 ? L"\\\\?\\UNC" + full.substr(1) : L"\\\\?\\" + full;
}

std::string WordsOfError(unsigned long error) {
  wchar_t words[512];
  DWORD size = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error, 0,
                              words, sizeof words / sizeof *words, nullptr);
  while (size > 0 && (words[size - 1] <= L' ' || words[size - 1] == L'.')) --size;
  return size > 0 ? Utf8Text(std::wstring(words, size)) : "error " + std::to_string(error);
}

}  // namespace hexlume
