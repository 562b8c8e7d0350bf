#include "platform/code_page_932.h"

#include <memory>

namespace hexlume {

namespace {

constexpr size_t leadByteCount = 50;  // lead bytes with a row in the table
constexpr uint8_t firstTrailByte = 0x40;
constexpr size_t trailByteCount = 0xFC - firstTrailByte + 1;

constexpr char16_t doubleBytes[leadByteCount][trailByteCount] = {
#include "platform/code_page_932_table.inc"
};

// User-defined characters: the codes F040 to F9FC, without the trail byte 7F, are consecutive.
constexpr uint8_t firstUserLeadByte = 0xF0;
constexpr uint8_t lastUserLeadByte = 0xF9;
constexpr char16_t firstUserCharacter = 0xE000;
constexpr int userCharactersPerLeadByte = 188;
constexpr uint8_t unusedTrailByte = 0x7F;

constexpr bool IsUserLeadByte(uint8_t lead) {
  return lead >= firstUserLeadByte && lead <= lastUserLeadByte;
}

constexpr size_t RowOf(uint8_t lead) {
  if (lead < 0xE0) return lead - 0x81;
  if (lead < firstUserLeadByte) return lead - 0xE0 + 31;
  return lead - 0xFA + 47;
}

char16_t UserCharacter(uint8_t lead, uint8_t trail) {
  if (trail == unusedTrailByte) return noCharacter;
  const int column = trail - firstTrailByte - (trail > unusedTrailByte ? 1 : 0);
  return static_cast<char16_t>(firstUserCharacter + (lead - firstUserLeadByte) * userCharactersPerLeadByte +
                               column);
}

char16_t DoubleByteCharacter(uint8_t lead, uint8_t trail) {
  if (trail < firstTrailByte || trail > 0xFC) return noCharacter;
  if (IsUserLeadByte(lead)) return UserCharacter(lead, trail);
  const char16_t character = doubleBytes[RowOf(lead)][trail - firstTrailByte];
  return character ? character : noCharacter;
}

char16_t SingleByteCharacter(uint8_t byte) {
  if (byte <= 0x80) return byte;
  if (byte == 0xA0) return 0xF8F0;
  if (byte >= 0xA1 && byte <= 0xDF)
    return static_cast<char16_t>(0xFF61 + byte - 0xA1);  // half-width katakana
  if (byte >= 0xFD) return static_cast<char16_t>(0xF8F1 + byte - 0xFD);
  return noCharacter;  // a lead byte without a trail byte
}

struct BestFit {
  char16_t character;
  uint16_t bytes;
};

// Characters that the code page doesn't have, and the similar ones that Windows substitutes.
constexpr BestFit bestFits[] = {
#include "platform/code_page_932_best_fit.inc"
};

constexpr size_t utf16Units = 0x10000;

struct BytesOfCharacters {
  uint16_t bytes[utf16Units] = {};

  BytesOfCharacters() {
    for (const BestFit& fit : bestFits) Add(fit.bytes, fit.character);
    // A character with several codes gets the code added last. In ascending order of preference: NEC's
    // selection of IBM characters, IBM's characters, NEC's row 13, JIS.
    AddRows(0xED, 0xEE);
    AddRows(0xFA, 0xFC);
    AddRows(0x87, 0x87);
    AddRows(firstUserLeadByte, lastUserLeadByte);
    AddRows(0xE0, 0xEA);
    AddRows(0x88, 0x9F);
    AddRows(0x81, 0x84);
    for (int byte = 0; byte <= 0xFF; ++byte) {
      if (!IsLeadByte(static_cast<uint8_t>(byte)))
        Add(static_cast<uint16_t>(byte), SingleByteCharacter(static_cast<uint8_t>(byte)));
    }
  }

  void Add(uint16_t code, char16_t character) { bytes[character] = code; }

  void AddRows(int firstLead, int lastLead) {
    for (int lead = firstLead; lead <= lastLead; ++lead) {
      for (int trail = firstTrailByte; trail <= 0xFC; ++trail) {
        const uint16_t code = static_cast<uint16_t>(lead << 8 | trail);
        const char16_t character =
            DoubleByteCharacter(static_cast<uint8_t>(lead), static_cast<uint8_t>(trail));
        if (character != noCharacter || code == 0x8145) Add(code, character);
      }
    }
  }
};

}  // namespace

size_t CharacterBytes(const char* text, size_t length) {
  return length > 1 && IsLeadByte(static_cast<uint8_t>(text[0])) && text[1] != 0 ? 2 : 1;
}

char16_t Utf16Character(const char* text, size_t bytes) {
  const uint8_t first = static_cast<uint8_t>(text[0]);
  return bytes == 2 ? DoubleByteCharacter(first, static_cast<uint8_t>(text[1])) : SingleByteCharacter(first);
}

std::u16string Utf16Text(const char* text, size_t length) {
  std::u16string characters;
  characters.reserve(length);
  while (length != 0) {
    if (static_cast<uint8_t>(*text) < 0x80) {
      characters.push_back(static_cast<char16_t>(*text++));
      --length;
      continue;
    }
    const size_t bytes = CharacterBytes(text, length);
    characters.push_back(Utf16Character(text, bytes));
    text += bytes;
    length -= bytes;
  }
  return characters;
}

uint16_t CodePage932Bytes(char16_t character) {
  static const std::unique_ptr<const BytesOfCharacters> table = std::make_unique<BytesOfCharacters>();
  const uint16_t bytes = table->bytes[character];
  return bytes == 0 && character != 0 ? '?' : bytes;
}

}  // namespace hexlume
