// Texts in the forms that other programs read.
#pragma once

#include <string>

namespace hexlume::batch {

// The path of a file in a URI: all bytes but letters, digits and "-._~/" as %XX.
std::string PercentEncoded(const std::string& path);

// One word for a POSIX shell.
std::string Quoted(const std::string& text);

// A field of a CSV file (RFC 4180): in quotes where it must be.
std::string CsvField(const std::string& text);

// For HTML, where bytes that aren't UTF-8 become replacement characters.
std::string Escaped(const std::string& text);

// Whether all of the text is UTF-8.
bool IsUtf8(const std::string& text);

// Hexadecimal digits, two for each byte.
std::string HexDigits(const std::string& bytes);

// For example 1:02:03, or 4:05.
std::string Duration(int64_t seconds);

}  // namespace hexlume::batch
