// Removal and replacement of the codes in a text before it is drawn. The routines rewrite the buffer of their
// scope. Some search by bytes: to them a trail byte 5C is a backslash. They throw textTooLongCode if the text
// doesn't fit its buffer any more.
#pragma once

#include <cstddef>
#include <cstdint>

namespace hexlume {

// Replacements, as bytes of code page 932.
constexpr char degreeSign[] = "\x81\x8B";
constexpr char diameterSign[] = "\x83\xD3";  // the Greek small phi
constexpr char plusMinusSign[] = "\x81\x7D";
constexpr char middleDot[] = "\x81\x45";
constexpr char fullWidthBlank[] = "\x81\x40";
constexpr char fullWidthBrackets[] = "\x81\x69\x81\x6A";

// Counts a round over a text, which searches it several times.
void CountTextRound(size_t bytes);

// Replace or remove "%%" codes. In entText the "\U+" codes of three symbols are replaced too.
void ExpandPercentCodes();           // entText
void ExpandBlockPercentCodes();      // blockText
void ExpandDimInsertPercentCodes();  // dimText

// Remove codes in braces, and one at the start of the text.
void StripBraceCodes();       // entText
void StripBlockBraceCodes();  // blockText

// Remove blanks and brackets, to classify a text. The caller restores the text afterwards.
void StripSpaceAndParens();       // entText
void StripBlockSpaceAndParens();  // blockText
void StripFullWidthSpace();       // entText

// Adds a blank to a full-width pair of brackets with nothing but blanks in it.
void WidenEmptyBrackets();  // entText

// Set the numbers of the codes "\W", "\T" and "\Q" in groupValue. A number without a code is kept. In a
// block, groupValue loses the codes.
void ParseFontScales(double& width, double& tracking, double& oblique);
void ParseBlockFontScales(double& width, double& tracking, double& oblique);

// Store the face of the first "\f" code. The name is kept if there is no code, or no "|" after it.
void ExtractFontName();       // from entText to entFaceName
void ExtractBlockFontName();  // from blockText to blockFaceName

}  // namespace hexlume
