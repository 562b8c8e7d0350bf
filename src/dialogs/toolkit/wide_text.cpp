#include "dialogs/toolkit/wide_text.h"

#include <windows.h>

namespace hexlume {

namespace {

constexpr UINT codePage = 932;

}  // namespace

std::wstring WideText(const char* bytes) {
  const int units = MultiByteToWideChar(codePage, 0, bytes, -1, nullptr, 0);
  if (units <= 0) return {};
  std::wstring text(static_cast<size_t>(units), L'\0');
  MultiByteToWideChar(codePage, 0, bytes, -1, text.data(), units);
  text.pop_back();  // the terminating 0
  return text;
}

std::string ByteText(const std::wstring& text) {
  const int units = static_cast<int>(text.size());
  const int length = WideCharToMultiByte(codePage, 0, text.data(), units, nullptr, 0, nullptr, nullptr);
  if (length <= 0) return {};
  std::string bytes(static_cast<size_t>(length), '\0');
  WideCharToMultiByte(codePage, 0, text.data(), units, bytes.data(), length, nullptr, nullptr);
  return bytes;
}

}  // namespace hexlume
