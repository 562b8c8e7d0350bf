// The codes in an MTEXT's string, and its paragraphs.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace hexlume {

struct MTextCodes {
  double scaleW = 1.0;    // the code "\W"
  double scaleT = 1.0;    // the code "\T"
  double obliqueQ = 0.0;  // the code "\Q", used as tenths of a degree
  std::string pending;    // the strings of all groups 1 so far, "\U" codes converted
};

// Group 1: reads groupValue into the scope's buffer.
void ReadMTextString(MTextCodes& codes);       // entText
void ReadBlockMTextString(MTextCodes& codes);  // blockText
void ReadDimMTextString(MTextCodes& codes);    // entText

// Moves the first paragraph of work to text, a buffer of size bytes. Without a "\P" in work, all of it is
// copied and kept: it is drawn again if more paragraphs are counted than there are.
void TakeParagraph(char* work, char* text, size_t size);

// Adds the number of "\P" in entText to count.
void CountLines(int32_t& count);

}  // namespace hexlume
