// What ends the program before its work is done.
#pragma once

#include <stdexcept>

namespace hexlume::batch {

// The exit statuses that only this program has. Wrong usage and files that can't be written have those of hexlume.
constexpr int notAllDoneExit = 1;      // drawings have failed or are left
constexpr int engineMissingExit = 69;  // the engine isn't there or refuses the work
constexpr int unreadableExit = 74;     // the plan or a result can't be read
constexpr int interruptedExit = 130;

// The folder of a batch can't be used: no plan, a damaged one, one of another version.
struct FolderError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// The engine isn't installed, or refuses the work.
struct EngineError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// The storage fails, not a single drawing. What is left is converted once that is mended.
struct StorageError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

}  // namespace hexlume::batch
