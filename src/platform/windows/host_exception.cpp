#include "platform/host_exception.h"

#include <windows.h>

extern "C" char __ImageBase;

namespace hexlume {

namespace {

// The description of a thrown object as the system's own compilers generate it, in the layout of their header
// ehdata.h. Pointer fields are addresses on x86 and offsets from the image base on x64.

struct TypeDescriptor {
  const void* typeInfoTable;
  void* undecoratedName;
  char name[3];
};

struct CatchableType {
  uint32_t properties;
  uint32_t type;
  int32_t memberOffset;
  int32_t virtualBaseTable;
  int32_t virtualBaseIndex;
  uint32_t size;
  uint32_t copyConstructor;
};

struct CatchableTypeArray {
  uint32_t count;
  uint32_t types[1];
};

struct ThrowInfo {
  uint32_t attributes;
  uint32_t destructor;
  uint32_t forwardCompatibility;
  uint32_t catchableTypes;
};

constexpr DWORD exceptionCode = 0xE06D7363;
constexpr ULONG_PTR frameMagic = 0x19930520;
constexpr uint32_t simpleType = 1;
constexpr int32_t noVirtualBase = -1;
constexpr bool fieldsAreOffsets = sizeof(void*) == 8;

uint32_t Place(const void* object) {
  const auto base = fieldsAreOffsets ? reinterpret_cast<uintptr_t>(&__ImageBase) : 0;
  return static_cast<uint32_t>(reinterpret_cast<uintptr_t>(object) - base);
}

}  // namespace

void ThrowToHost(int32_t code) {
  // Static, because a host reads all of it after the library's frames are gone.
  static int32_t thrown;
  static TypeDescriptor intType = {nullptr, nullptr, ".H"};
  static CatchableType catchable;
  static CatchableTypeArray catchables;
  static ThrowInfo info;

  thrown = code;
  catchable = {simpleType, Place(&intType), 0, noVirtualBase, 0, sizeof thrown, 0};
  catchables = {1, {Place(&catchable)}};
  info = {0, 0, 0, Place(&catchables)};

  const ULONG_PTR parameters[] = {frameMagic, reinterpret_cast<ULONG_PTR>(&thrown),
                                  reinterpret_cast<ULONG_PTR>(&info),
                                  reinterpret_cast<ULONG_PTR>(&__ImageBase)};
  RaiseException(exceptionCode, EXCEPTION_NONCONTINUABLE, fieldsAreOffsets ? 4 : 3, parameters);
  __builtin_trap();
}

}  // namespace hexlume
