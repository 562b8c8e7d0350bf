// What becomes of the codes in a text before it is drawn. The routines rewrite the buffer of their scope;
// they work on bytes, and where they look for a code without minding lead bytes, a trail byte 5C is a
// backslash to them. A text that outgrows its buffer throws textTooLongCode.
#pragma once

#include <cstdint>

namespace hexlume {

// Replacements, as bytes of code page 932.
constexpr char degreeSign[] = "\x81\x8B";
constexpr char diameterSign[] = "\x83\xD3";  // the Greek small phi
constexpr char plusMinusSign[] = "\x81\x7D";
constexpr char middleDot[] = "\x81\x45";
constexpr char fullWidthBlank[] = "\x81\x40";
constexpr char fullWidthBrackets[] = "\x81\x69\x81\x6A";

// "%%" codes; in entText those of "\U+" for symbols too.
void ExpandPercentCodes();           // entText
void ExpandBlockPercentCodes();      // blockText
void ExpandDimInsertPercentCodes();  // dimText

// Codes in braces and in front of the text.
void StripBraceCodes();       // entText
void StripBlockBraceCodes();  // blockText

// For a look at what a text consists of: the caller puts the text back.
void StripSpaceAndParens();       // entText
void StripBlockSpaceAndParens();  // blockText
void StripFullWidthSpace();       // entText

// Opens a pair of empty full-width brackets by one blank.
void WidenEmptyBrackets();  // entText

// The numbers of the codes "\W", "\T" and "\Q" in groupValue; one whose code isn't there stays. In a block
// groupValue is cut on the way.
void ParseFontScales(double& width, double& tracking, double& oblique);
void ParseBlockFontScales(double& width, double& tracking, double& oblique);

// The face that a "\f" code names; without one, or without a "|" behind it, the name stays.
void ExtractFontName();       // from entText to entFaceName
void ExtractBlockFontName();  // from blockText to blockFaceName

}  // namespace hexlume
