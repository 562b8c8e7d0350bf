// A string in code page 932.
#pragma once

#include <windows.h>

#include <string>

namespace hexlume {

class CString {
 public:
  CString() = default;
  CString(const char* bytes) : text(bytes) {}
  CString(std::string bytes) : text(std::move(bytes)) {}

  operator const char*() const { return text.c_str(); }
  int GetLength() const { return static_cast<int>(text.size()); }
  void Truncate(int length) { text.resize(static_cast<size_t>(length)); }

  void Format(const char* format, ...) __attribute__((format(gnu_printf, 2, 3)));

  // Loads a string of the module's string table. Returns 0 if there is none with this id.
  BOOL LoadString(UINT id);

 private:
  std::string text;
};

}  // namespace hexlume
