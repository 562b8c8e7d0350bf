// The functions of FreeType that measure faces: linked, or loaded with the first text.
#pragma once

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_ADVANCES_H
#include FT_TRUETYPE_TABLES_H

namespace hexlume {

struct FreeTypeFunctions {
  decltype(&::FT_Done_Face) FT_Done_Face;
  decltype(&::FT_Done_FreeType) FT_Done_FreeType;
  decltype(&::FT_Get_Advance) FT_Get_Advance;
  decltype(&::FT_Get_Char_Index) FT_Get_Char_Index;
  decltype(&::FT_Get_Sfnt_Table) FT_Get_Sfnt_Table;
  decltype(&::FT_Init_FreeType) FT_Init_FreeType;
  decltype(&::FT_Load_Glyph) FT_Load_Glyph;
  decltype(&::FT_Load_Sfnt_Table) FT_Load_Sfnt_Table;
  decltype(&::FT_New_Face) FT_New_Face;
  decltype(&::FT_Set_Pixel_Sizes) FT_Set_Pixel_Sizes;
};

// Where they are loaded, HasFontLibraries() must have returned true.
const FreeTypeFunctions& FreeType();

}  // namespace hexlume
