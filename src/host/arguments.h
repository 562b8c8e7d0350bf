// What a host hands over, checked and copied.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

#include "hexlume_host.h"

namespace hexlume {

// Names the argument and what it must be.
struct BadArgument : std::runtime_error {
  using std::runtime_error::runtime_error;
};

struct HostInput {
  std::string path;
  const char* bytes = nullptr;  // null for a file
  int64_t byteCount = 0;
};

struct HiddenLayer {
  std::string name;  // in UTF-8, as the host has it
  std::string inCodePage932;
};

struct HostOptions {
  hexlume_options plain = {};  // but for the names, which are the host's
  std::vector<HiddenLayer> hiddenLayers;

  // What the conversions are asked for in showDialogs: whether the answers below are taken.
  bool AnswersSelection() const;
  bool AnswersScale() const { return plain.denominator != 0; }
};

// Both throw BadArgument.
HostInput TakeInput(const hexlume_input* input);
HostOptions TakeOptions(const hexlume_options* options);

}  // namespace hexlume
