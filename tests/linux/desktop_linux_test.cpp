// The files that are made from the table of options, and what a desktop calls.
#include <gtest/gtest.h>

#include <cstdlib>
#include <sstream>
#include <string>

#include "host/host_drawings.h"
#include "support/tool_run.h"

namespace hexlume::desktop_linux_test {
namespace {

using Desktop = ToolRun;

const std::string manualFolder = HEXLUME_MANUAL_DIR;

int Shell(const std::string& command) {
  return std::system(command.c_str());
}

// What the completion offers for the last of the words.
std::string Completion(const std::string& words) {
  EXPECT_EQ(0, Shell("bash -c '. " + manualFolder + "/hexlume.bash; COMP_WORDS=(hexlume " + words +
                     "); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _hexlume; printf \"%s \" "
                     "\"${COMPREPLY[@]}\"' >words.txt"));
  return Contents("words.txt");
}

TEST_F(Desktop, completion_knows_the_options) {
  EXPECT_EQ("--full-size ", Completion("--fu"));
  EXPECT_EQ("--hide-layer --hide-line-type ", Completion("--hide"));
  EXPECT_EQ("auto as-is ", Completion("--format \"\""));
  EXPECT_EQ("dotted dashed double-chain ", Completion("--hide-line-type d"));
  EXPECT_EQ(" ", Completion("--jobs \"\""));
}

TEST_F(Desktop, completion_offers_drawings_and_folders) {
  Shell("mkdir folder other; touch plan.dxf PLAN2.DXF notes.txt");
  const std::string folders = Completion("-d \"\"");  // in the order of the file system
  EXPECT_TRUE(folders == "folder other " || folders == "other folder ") << folders;
  const std::string offered = Completion("\"\"");
  for (const char* name : {"folder ", "plan.dxf ", "PLAN2.DXF "})
    EXPECT_TRUE(Contains(offered, name)) << name;
  EXPECT_FALSE(Contains(offered, "notes.txt"));
}

TEST_F(Desktop, the_manual_has_every_option_of_the_help_and_no_mistake) {
  EXPECT_EQ(
      0, Shell("groff -man -ww -Tascii -P-cbou " + manualFolder + "/hexlume.1 >manual.txt 2>mistakes.txt"));
  EXPECT_EQ("", Contents("mistakes.txt"));
  const std::string manual = Contents("manual.txt");
  std::istringstream help(RunReal("--help").out);
  int count = 0;
  for (std::string word; help >> word;) {
    if (word.compare(0, 2, "--") != 0) continue;
    if (word.back() == ':') word.pop_back();
    EXPECT_TRUE(Contains(manual, word)) << word;
    ++count;
  }
  EXPECT_LT(30, count);
}

std::string Replaced(std::string text, const std::string& part, const std::string& by) {
  const size_t at = text.find(part);
  EXPECT_NE(std::string::npos, at) << part;
  return text.replace(at, part.size(), by);
}

TEST_F(Desktop, the_thumbnailer_calls_what_makes_a_thumbnail) {
  const std::string entry = Contents(HEXLUME_THUMBNAILER);
  EXPECT_TRUE(Contains(entry, "\nMimeType=image/vnd.dxf;\n"));
  const size_t start = entry.find("\nExec=hexlume ") + std::string("\nExec=hexlume ").size();
  std::string call = entry.substr(start, entry.find('\n', start) - start);
  // A header that says a sheet of 1 by 1: the lines are beyond it.
  Write("-図面 1.dxf",
        DrawingBytes("0 SECTION\n2 HEADER\n9 $LIMMIN\n10 0\n20 0\n9 $LIMMAX\n10 1\n20 1\n0 ENDSEC\n"
                     "0 SECTION\n2 ENTITIES\n0 LINE\n8 0\n10 0\n20 0\n11 400\n21 200\n" +
                     end));
  call = Replaced(Replaced(Replaced(call, "%s", "256"), "%o", "thumbnail"), "%i", "'-図面 1.dxf'");
  ExpectSuccess(RunReal(call));
  EXPECT_EQ(256u, std::max(SizeOfPicture("thumbnail").width, SizeOfPicture("thumbnail").height));
}

}  // namespace
}  // namespace hexlume::desktop_linux_test
