// What the tests need of the processor; a source for each.
#pragma once

#include <windows.h>

#include <cstdint>

namespace hexlume::test {

// Calls run(context) in a frame of structured handling that takes every exception and hands it to `take`. Not
// for use on two threads at a time.
void RunUnderHandler(void (*run)(void* context), void* context, void (*take)(const EXCEPTION_RECORD&));

// The address of the 64-bit process environment block.
uintptr_t ProcessEnvironment();

}  // namespace hexlume::test
