#include "windows/process_resources.h"

#include <windows.h>
// After <windows.h>, which it needs.
#include <psapi.h>

#include <algorithm>
#include <cstdint>
#include <vector>

#include "windows/processor.h"

namespace hexlume {

namespace {

// Wine's GetGuiResources counts nothing, but its table of GDI objects, which the 64-bit process environment
// block points to as on Windows, can be counted.
struct GdiTableEntry {
  uint64_t object;
  uint16_t owner;
  uint16_t count;
  uint16_t unique;
  uint8_t type;
  uint8_t flags;
  uint64_t user;
};
constexpr size_t gdiTableSize = 16384;

const GdiTableEntry* GdiTable() {
  const uintptr_t environment = test::ProcessEnvironment();
  return reinterpret_cast<const GdiTableEntry*>(
      static_cast<uintptr_t>(*reinterpret_cast<const uint64_t*>(environment + 0xF8)));
}

}  // namespace

size_t CountGdiObjects() {
  if (const DWORD counted = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS)) return counted;
  const GdiTableEntry* table = GdiTable();
  size_t count = 0;
  for (size_t i = 0; i < gdiTableSize; ++i) count += table[i].type != 0;
  return count;
}

size_t CountUserObjects() {
  if (const DWORD counted = GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS)) return counted;
  // Wine numbers them in one row and takes gaps first. When a new one gets a higher number than all before
  // it, there are no gaps left, and the number says how many there are.
  constexpr size_t moreThanGaps = 2000;  // while nobody has looked yet
  constexpr size_t firstNumber = 0x20, step = 2;
  static size_t highest = 0;
  std::vector<HMENU> menus;
  size_t number;
  do {
    menus.push_back(CreateMenu());
    number = (reinterpret_cast<size_t>(menus.back()) & 0xFFFF) - firstNumber;
  } while (menus.size() < moreThanGaps || number < highest);
  highest = std::max(highest, number);
  for (const HMENU menu : menus) DestroyMenu(menu);
  return number / step + 1 - menus.size();
}

size_t WorkingSet() {
  PROCESS_MEMORY_COUNTERS counters = {};
  GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
  return counters.WorkingSetSize;
}

}  // namespace hexlume
