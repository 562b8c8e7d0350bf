// What the fuzz targets share. Each is a source with the two functions of a target of libFuzzer; replay_main.cpp calls the
// same functions without libFuzzer.
#pragma once

#include <cstddef>
#include <cstdint>

namespace hexlume {

// Ends the process unless the contract holds.
void Check(bool holds, const char* what);

}  // namespace hexlume

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size);
