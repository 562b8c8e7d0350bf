// Messages between the tool and its workers: lists of texts.
#pragma once

#include <cstdio>
#include <optional>
#include <string>
#include <vector>

namespace hexlume {

using Message = std::vector<std::string>;

std::string Encoded(const Message& message);

// Puts messages together from bytes as they come.
class MessageParts {
 public:
  void Add(const std::string& bytes) { text += bytes; }

  // The next message, if all of it has come.
  std::optional<Message> Take();

 private:
  std::string text;
  size_t taken = 0;
};

// Waits for the next message. None at the end of the stream.
std::optional<Message> ReadMessage(std::FILE* stream);

}  // namespace hexlume
