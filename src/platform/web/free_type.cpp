// FreeType is linked.
#include "platform/portable/free_type.h"

namespace hexlume {

const FreeTypeFunctions& FreeType() {
  static const FreeTypeFunctions functions = {
      FT_Done_Face,     FT_Done_FreeType, FT_Get_Advance,     FT_Get_Char_Index, FT_Get_Sfnt_Table,
      FT_Init_FreeType, FT_Load_Glyph,    FT_Load_Sfnt_Table, FT_New_Face,       FT_Set_Pixel_Sizes,
  };
  return functions;
}

}  // namespace hexlume
