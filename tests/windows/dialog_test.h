// Conversions with dialogs, through the library as a host loads it, and what they draw.
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <string>
#include <vector>

#include "support/loaded_library.h"
#include "support/text_drawing.h"
#include "windows/dialog_windows.h"

namespace hexlume {

using Numbers = std::vector<int32_t>;

struct Layer {
  const char* name;
  int32_t color;      // negative: switched off
  int32_t flags = 0;  // 1: frozen
};

// A sheet of 300 by 200 mm. Line number i is on layer i, at 10 + 10 i mm from the sheet's lower edge.
std::string LayersDrawing(const std::vector<Layer>& layers);

// The same with line number i on the layer with the name number i.
std::string LayersDrawing(const std::vector<Layer>& layers, const std::vector<std::string>& lineLayers);

// Line number i is of dash family i.
std::string FamiliesDrawing();

// A sheet that is beyond A0, with a line as the one above, on one layer.
std::string LargeDrawing(int32_t width = 2000, int32_t height = 1500);

// What a sheet of 300 by 200 mm is when the conversion goes the short way, and when it draws nothing.
constexpr char onlyFrame[] = "Frame(0, 0, 30000, 20000)\n";
constexpr char emptySheet[] = "Frame(0, 0, 30000, 20000)\nSetMapMode(MM_HIMETRIC)\n";

struct Conversion {
  int32_t code;
  bool hasMetafile;     // whether out was written
  std::string listing;  // "" without a metafile

  Numbers Lines() const;        // the numbers of the lines that are drawn, as the drawings above place them
  Numbers TurnedLines() const;  // the same on a turned sheet
  std::string Frame() const;    // the listing's first line
};

class DialogTest : public testing::Test {
 protected:
  using User = std::function<void()>;

  // The conversions; the user acts meanwhile, and a complaint is a failure.
  Conversion Whole(const std::string& drawing, int32_t showDialogs, const User& user);
  Conversion Part(const std::string& drawing, int32_t showDialogs, const User& user,
                  const RECT& view = {0, 0, 30000, 20000});
  Conversion FullSize(const std::string& drawing, int32_t showDialogs, const User& user);
  Conversion Turned();

  // The whole sheet with the selection sheet, and the size dialog where it is beyond A0.
  Conversion Select(const std::string& drawing, const User& user) { return Whole(drawing, 1, user); }
  // With the size dialog alone.
  Conversion Scale(const std::string& drawing, const User& user) { return Whole(drawing, 2, user); }

  static void ExpectCancelled(const Conversion& conversion) {
    EXPECT_EQ(16, conversion.code);
    EXPECT_FALSE(conversion.hasMetafile);
  }

  Conversion Convert(const User& user, const std::function<int32_t(HENHMETAFILE*)>& call);

  // The path of a drawing, which stays for a turn afterwards.
  const char* Keep(const std::string& drawing) { return drawings.emplace_back(drawing).Path(); }

  LoadedLibrary library;

 private:
  std::deque<TemporaryDrawing> drawings;
};

}  // namespace hexlume
