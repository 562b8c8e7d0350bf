// Inputs of the targets that take drawings: a head of some bytes that chooses the options, then the drawing.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "hexlume_host.h"

namespace hexlume {

// scripts/fuzz.sh writes heads before its seeds.
constexpr size_t headSize = 12;

struct DrawingInput {
  hexlume_input drawing;
  hexlume_options options;
  bool convertsTwice, lists;
  int32_t callsToCancel;  // of progress; below 0: never
};

// False if there is no head. The input refers to the bytes and to names of this module.
bool TakeDrawing(const uint8_t* bytes, size_t size, DrawingInput& input);

// The result of a call, with all that a host can ask it for.
void CheckResult(const DrawingInput& input, int32_t status, const hexlume_result* result);

}  // namespace hexlume
