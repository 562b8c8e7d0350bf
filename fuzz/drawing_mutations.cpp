// The mutations of the targets that take drawings: ours and those of libFuzzer, in turn.
#include <algorithm>
#include <cstring>
#include <string>

#include "fuzz/drawing_input.h"
#include "fuzz/drawing_mutator.h"

extern "C" size_t LLVMFuzzerMutate(uint8_t* bytes, size_t size, size_t mostSize);

using namespace hexlume;

namespace {

std::string_view DrawingOf(const uint8_t* bytes, size_t size) {
  return {reinterpret_cast<const char*>(bytes) + headSize, size - headSize};
}

size_t PutDrawing(uint8_t* bytes, const std::string& drawing) {
  std::memcpy(bytes + headSize, drawing.data(), drawing.size());
  return headSize + drawing.size();
}

}  // namespace

extern "C" size_t LLVMFuzzerCustomMutator(uint8_t* bytes, size_t size, size_t mostSize, unsigned int seed) {
  if (size < headSize || mostSize <= headSize) return LLVMFuzzerMutate(bytes, size, mostSize);
  const uint32_t choice = seed % 16;
  if (choice == 0) bytes[seed / 16 % headSize] = static_cast<uint8_t>(seed >> 24);
  if (choice < 4) return headSize + LLVMFuzzerMutate(bytes + headSize, size - headSize, mostSize - headSize);
  return PutDrawing(bytes, ChangedDrawing(DrawingOf(bytes, size), mostSize - headSize, seed / 16));
}

extern "C" size_t LLVMFuzzerCustomCrossOver(const uint8_t* first, size_t firstSize, const uint8_t* second,
                                            size_t secondSize, uint8_t* out, size_t mostSize,
                                            unsigned int seed) {
  if (firstSize < headSize || secondSize < headSize || mostSize <= headSize) return 0;
  std::memcpy(out, first, headSize);
  return PutDrawing(out, CrossedDrawing(DrawingOf(first, firstSize), DrawingOf(second, secondSize),
                                        mostSize - headSize, seed));
}
