// Lists the UTF-16 units that aren't in code page 932 and that Windows converts to a similar character of it.
// One row a unit: its number and the bytes. scripts/make_best_fit_932.sh builds and runs this program.
#include <windows.h>

#include <cstdio>

namespace {

// Returns the bytes as a number, the first byte high. Returns 0 if there are none.
unsigned Bytes(wchar_t unit, DWORD flags) {
  char bytes[2] = {};
  const int count = WideCharToMultiByte(932, flags, &unit, 1, bytes, sizeof bytes, nullptr, nullptr);
  unsigned number = 0;
  for (int i = 0; i < count; ++i) number = number << 8 | static_cast<unsigned char>(bytes[i]);
  return number;
}

}  // namespace

int main() {
  for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
    const auto character = static_cast<wchar_t>(unit);
    const unsigned bytes = Bytes(character, 0);
    if (bytes != Bytes(character, WC_NO_BEST_FIT_CHARS)) std::printf("{0x%04X, 0x%04X},\n", unit, bytes);
  }
}
