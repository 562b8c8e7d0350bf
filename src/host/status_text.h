// The statuses and remarks in words.
#pragma once

#include <cstdint>
#include <string>

namespace hexlume {

struct Sentence {
  std::string english, japanese;
};

// Short names; null for a number that is none.
const char* StatusName(int32_t status);
const char* RemarkName(int32_t code);

// With the line in front, if it isn't 0, and the detail where the sentence has a place for it.
Sentence StatusSentence(int32_t status, int64_t line, const std::string& detail);
Sentence RemarkSentence(int32_t code, int64_t line, int64_t count, const std::string& detail);
Sentence WithLine(Sentence sentence, int64_t line);

}  // namespace hexlume
