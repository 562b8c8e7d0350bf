// The dialogs between a host's window and its message loop.
#include "windows/dialog_test.h"

namespace hexlume::dialog_host_test {
namespace {

constexpr UINT countMessage = WM_APP, destroyMessage = WM_APP + 1;

// The host's window, active when the conversion starts.
class HostWindow {
 public:
  HostWindow() {
    WNDCLASSW windowClass = {};
    windowClass.lpfnWndProc = Procedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = L"HexlumeTestHost";
    RegisterClassW(&windowClass);
    clicks = messages = 0;
    window = CreateWindowW(windowClass.lpszClassName, L"host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 500, 250,
                           400, 400, nullptr, nullptr, windowClass.hInstance, nullptr);
    SetForegroundWindow(window);
  }
  ~HostWindow() { DestroyWindow(window); }
  HostWindow(const HostWindow&) = delete;
  HostWindow& operator=(const HostWindow&) = delete;

  // What came to it. One window at a time.
  static inline int clicks, messages;
  static inline bool enabledWhenActivated;  // the last time

  HWND window;

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_LBUTTONDOWN) ++clicks;
    if (message == WM_ACTIVATE && LOWORD(wParam) != WA_INACTIVE)
      enabledWhenActivated = IsWindowEnabled(window);
    if (message == countMessage) ++messages;
    if (message == destroyMessage) DestroyWindow(reinterpret_cast<HWND>(wParam));
    return DefWindowProcW(window, message, wParam, lParam);
  }
};

bool IsEnabled(const HostWindow& host) {
  return IsWindowEnabled(host.window);
}

class Host : public DialogTest {
 protected:
  void SetUp() override { ASSERT_EQ(host.window, GetActiveWindow()); }

  static void Cancel() { SheetWindow().Cancel(); }

  void ExpectBack() {
    EXPECT_TRUE(IsEnabled(host));
    EXPECT_EQ(host.window, GetActiveWindow());
  }

  const HostWindow host;
  const std::string three = LayersDrawing({{"A", 7}, {"B", 7}, {"C", 7}});
};

TEST_F(Host, its_window_owns_the_sheet_and_is_disabled_while_it_is_up) {
  Select(three, [&] {
    const SheetWindow sheet;
    EXPECT_EQ(host.window, GetWindow(sheet.window, GW_OWNER));
    EXPECT_FALSE(IsEnabled(host));
    sheet.Ok();
  });
}

TEST_F(Host, its_window_owns_the_size_dialog_and_is_disabled_while_it_is_up) {
  Scale(LargeDrawing(), [&] {
    const SizeWindow size;
    EXPECT_EQ(host.window, GetWindow(size.window, GW_OWNER));
    EXPECT_FALSE(IsEnabled(host));
    size.Ok();
  });
  ExpectBack();
}

TEST_F(Host, after_ok_its_window_is_enabled_and_active) {
  Select(three, PressOkOnSheet);
  ExpectBack();
}

TEST_F(Host, its_window_is_enabled_already_when_it_becomes_active) {
  HostWindow::enabledWhenActivated = false;
  Select(three, PressOkOnSheet);
  EXPECT_TRUE(HostWindow::enabledWhenActivated);
  HostWindow::enabledWhenActivated = false;
  Select(three, Cancel);
  EXPECT_TRUE(HostWindow::enabledWhenActivated);
}

TEST_F(Host, after_cancel_its_window_is_enabled_and_active) {
  EXPECT_EQ(16, Whole(three, 1, Cancel).code);
  ExpectBack();
  EXPECT_EQ(16, Part(three, 1, Cancel).code);
  ExpectBack();
  EXPECT_EQ(16, FullSize(three, 1, Cancel).code);
  ExpectBack();
}

TEST_F(Host, its_window_owns_both_dialogs_of_one_conversion) {
  Select(LargeDrawing(), [&] {
    const SizeWindow size;
    EXPECT_EQ(host.window, GetWindow(size.window, GW_OWNER));
    size.Ok();
    const SheetWindow sheet;
    EXPECT_EQ(host.window, GetWindow(sheet.window, GW_OWNER));
    EXPECT_FALSE(IsEnabled(host));
    sheet.Ok();
  });
  ExpectBack();
}

TEST_F(Host, a_window_that_was_disabled_before_stays_so) {
  EnableWindow(host.window, FALSE);
  SetActiveWindow(host.window);
  Select(three, PressOkOnSheet);
  EXPECT_FALSE(IsEnabled(host));
}

TEST_F(Host, the_sheet_comes_up_in_the_middle_of_its_window) {
  Select(three, [&] {
    const SheetWindow sheet;
    const RECT own = PlaceOf(host.window), place = PlaceOf(sheet.window);
    EXPECT_NEAR(own.left + own.right, place.left + place.right, 2);
    EXPECT_NEAR(own.top + own.bottom, place.top + place.bottom, 2);
    sheet.Cancel();
  });
}

TEST_F(Host, the_sheet_stays_on_the_screen_when_its_window_is_in_a_corner) {
  SetWindowPos(host.window, nullptr, 0, 0, 150, 100, SWP_NOZORDER);
  Select(three, [] {
    const SheetWindow sheet;
    const RECT place = PlaceOf(sheet.window);
    EXPECT_EQ(0, place.left);
    EXPECT_EQ(0, place.top);
    sheet.Cancel();
  });
}

TEST_F(Host, clicks_on_its_window_do_not_get_there_while_the_sheet_is_up) {
  Select(three, [&] {
    const SheetWindow sheet;
    const RECT own = PlaceOf(host.window);
    Click({own.left + 30, own.bottom - 30});
    sheet.ClickBox(0);
    sheet.ExpectTicks("-xx");
    sheet.Cancel();
  });
  EXPECT_EQ(0, HostWindow::clicks);
}

TEST_F(Host, messages_get_to_its_window_while_the_sheet_is_up) {
  Select(three, [&] {
    const SheetWindow sheet;
    PostMessageW(host.window, countMessage, 0, 0);
    WaitFor("message at the host", [] { return HostWindow::messages == 1; });
    sheet.Cancel();
  });
}

// A host that destroys windows while a dialog is up

class DestroyingHost : public Host {
 protected:
  void Destroy(HWND window, HWND dialog) const {
    PostMessageW(host.window, destroyMessage, reinterpret_cast<WPARAM>(window), 0);
    WaitUntilGone(dialog);
  }
};

TEST_F(DestroyingHost, a_sheet_that_it_destroys_is_cancelled) {
  const Conversion conversion = Select(three, [&] {
    const SheetWindow sheet;
    Destroy(sheet.window, sheet.window);
  });
  EXPECT_EQ(16, conversion.code);
  EXPECT_FALSE(conversion.hasMetafile);
  EXPECT_TRUE(IsEnabled(host));
}

TEST_F(DestroyingHost, a_size_dialog_that_it_destroys_is_cancelled) {
  const Conversion conversion = Scale(LargeDrawing(), [&] {
    const SizeWindow size;
    Destroy(size.window, size.window);
  });
  EXPECT_EQ(16, conversion.code);
  EXPECT_TRUE(IsEnabled(host));
}

TEST_F(DestroyingHost, with_its_own_window_the_sheet_goes_and_is_cancelled) {
  const Conversion conversion = Select(three, [&] {
    const SheetWindow sheet;
    Destroy(host.window, sheet.window);
  });
  EXPECT_EQ(16, conversion.code);
  EXPECT_FALSE(IsWindow(host.window));
}

TEST_F(DestroyingHost, the_next_conversion_works) {
  Select(three, [&] {
    const SheetWindow sheet;
    Destroy(sheet.window, sheet.window);
  });
  EXPECT_EQ((Numbers{0, 2}), Select(three, Untick({1})).Lines());
}

// A host that quits while a dialog is up

class QuittingHost : public Host {
 protected:
  static constexpr int quitCode = 7;

  static void Quit(HWND dialog) {
    PostThreadMessageW(GetWindowThreadProcessId(dialog, nullptr), WM_QUIT, quitCode, 0);
    WaitUntilGone(dialog);
  }

  // The conversion is cancelled, and the host's own loop finds the message.
  void ExpectQuit(const Conversion& conversion) {
    EXPECT_EQ(16, conversion.code);
    EXPECT_FALSE(conversion.hasMetafile);
    EXPECT_TRUE(IsEnabled(host));
    MSG message = {};
    EXPECT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(static_cast<UINT>(WM_QUIT), message.message);
    EXPECT_EQ(static_cast<WPARAM>(quitCode), message.wParam);
  }
};

TEST_F(QuittingHost, the_sheet_goes_and_the_message_stays) {
  const auto quit = [] { Quit(SheetWindow().window); };
  ExpectQuit(Whole(three, 1, quit));
  ExpectQuit(Part(three, 1, quit));
  ExpectQuit(FullSize(three, 1, quit));
}

TEST_F(QuittingHost, the_size_dialog_goes_and_the_message_stays_and_no_sheet_comes) {
  ExpectQuit(Select(LargeDrawing(), [] { Quit(SizeWindow().window); }));
}

TEST_F(QuittingHost, a_message_from_before_lets_no_sheet_wait) {
  PostQuitMessage(quitCode);
  ExpectQuit(Select(three, [] {}));
}

TEST_F(QuittingHost, the_next_conversion_works) {
  ExpectQuit(Select(three, [] { Quit(SheetWindow().window); }));
  EXPECT_EQ((Numbers{0, 2}), Select(three, Untick({1})).Lines());
}

}  // namespace
}  // namespace hexlume::dialog_host_test
