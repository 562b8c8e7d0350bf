// The tool as a user runs it: the dialogs of the Windows one.
#include <gtest/gtest.h>
#include <windows.h>

#include <string>

#include "support/text_drawing.h"
#include "support/tool_run.h"

namespace hexlume {
namespace {

using CommandLineWindows = ToolRun;

bool CanMakeWindows() {
  const HWND window =
      CreateWindowW(L"STATIC", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
  if (window) DestroyWindow(window);
  return window != nullptr;
}

TEST_F(CommandLineWindows, where_no_window_can_be_made_it_is_as_without_dialogs) {
  if (CanMakeWindows()) GTEST_SKIP() << "only for a process without a screen";
  // Drawings without layers, of which the second is beyond A0 and has fractions that the dialog of the scale
  // drops.
  const std::string end = "0 SECTION\n2 ENTITIES\n0 LINE\n8 A\n10 0\n20 0\n11 9\n21 9\n0 ENDSEC\n0 EOF\n";
  const std::string start = "0 SECTION\n2 HEADER\n9 $LIMMIN\n10 0\n20 0\n9 $LIMMAX\n";
  Write("small.dxf", DrawingBytes(start + "10 420\n20 297\n0 ENDSEC\n" + end));
  Write("large.dxf", DrawingBytes(start + "10 2000.95\n20 1500.95\n0 ENDSEC\n" + end));
  for (const char* drawing : {"small.dxf", "large.dxf"}) {
    for (const std::string conversion :
         {"--list ", "--list --full-size ", "--list --view 0,0,42000,29700 "}) {
      const Outcome without = RunReal(conversion + drawing);
      EXPECT_TRUE(Contains(without.out, "\nLineTo("));
      const Outcome dialogs = RunReal("--dialogs " + conversion + drawing);
      ExpectSuccess(dialogs);
      EXPECT_EQ(without.out, dialogs.out);
    }
  }
}

}  // namespace
}  // namespace hexlume
