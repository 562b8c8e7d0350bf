#include "tools/hexlume/archive/message.h"

#include <cstdint>
#include <cstring>

namespace hexlume {
namespace {

// Both processes are on one machine, so numbers are as they are in memory.
using Length = uint64_t;

void AppendLength(std::string& bytes, size_t length) {
  const Length number = length;
  bytes.append(reinterpret_cast<const char*>(&number), sizeof number);
}

Length LengthAt(const std::string& bytes, size_t place) {
  Length number = 0;
  std::memcpy(&number, bytes.data() + place, sizeof number);
  return number;
}

// The texts of a message without the length before it.
Message Decoded(const std::string& bytes, size_t place, size_t end) {
  Message message;
  while (end - place >= sizeof(Length)) {
    const Length length = LengthAt(bytes, place);
    place += sizeof(Length);
    if (length > end - place) break;
    message.push_back(bytes.substr(place, static_cast<size_t>(length)));
    place += static_cast<size_t>(length);
  }
  return message;
}

}  // namespace

std::string Encoded(const Message& message) {
  size_t size = 0;
  for (const std::string& text : message) size += sizeof(Length) + text.size();
  std::string bytes;
  bytes.reserve(sizeof(Length) + size);
  AppendLength(bytes, size);
  for (const std::string& text : message) {
    AppendLength(bytes, text.size());
    bytes += text;
  }
  return bytes;
}

std::optional<Message> MessageParts::Take() {
  const size_t available = text.size() - taken;
  if (available < sizeof(Length) || LengthAt(text, taken) > available - sizeof(Length)) {
    text.erase(0, taken);
    taken = 0;
    return std::nullopt;
  }
  const size_t start = taken + sizeof(Length);
  taken = start + static_cast<size_t>(LengthAt(text, taken));
  return Decoded(text, start, taken);
}

std::optional<Message> ReadMessage(std::FILE* stream) {
  Length length = 0;
  if (std::fread(&length, sizeof length, 1, stream) != 1) return std::nullopt;
  std::string bytes(static_cast<size_t>(length), '\0');
  if (length > 0 && std::fread(bytes.data(), bytes.size(), 1, stream) != 1) return std::nullopt;
  return Decoded(bytes, 0, bytes.size());
}

}  // namespace hexlume
