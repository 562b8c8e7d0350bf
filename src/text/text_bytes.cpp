#include "text/text_bytes.h"

namespace hexlume {

bool IsLetter(char byte) {
  return true;
}

bool IsDigit(char byte) {
  return true;
}

size_t CharacterCount(const char* text) {
  return 0;
}

char* FindCharacters(char* text, const char* sought) {
  return nullptr;
}

const char* FindCharacters(const char* text, const char* sought) {
  return nullptr;
}

}  // namespace hexlume
