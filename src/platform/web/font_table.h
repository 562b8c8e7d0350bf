// The table of fonts, which the page fills before it converts drawings. A web page has no installed fonts.
#pragma once

#include <stdint.h>

extern "C" {

// Removes all fonts.
void hexlume_fonts_clear(void);

// Adds a font file. The bytes must stay where they are until the table is cleared. families has names of the
// font, in UTF-8 and separated by line feeds, besides those that are in the file. Returns 1, or 0 if the bytes
// are no font.
int32_t hexlume_fonts_add(const uint8_t* bytes, int32_t size, const char* families);
}
