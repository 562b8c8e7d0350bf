// The themed background of the pages, on systems of the test's own.
#include "dialogs/theme.h"

#include <utility>

#include "windows/dialog_test.h"
#include "windows/import_patch.h"

namespace hexlume::dialog_theme_test {
namespace {

constexpr const char* themeLibrary = "UxTheme.dll";
constexpr const char* textureEntry = "EnableThemeDialogTexture";
constexpr DWORD enableTab = 6;

// What the system says, and what it was asked.
struct System {
  BOOL tellsVersion = TRUE;
  DWORD major = 10;
  DWORD minor = 0;
  bool hasThemeLibrary = true;
  bool hasTextureEntry = true;
  HRESULT textureResult = S_OK;

  OSVERSIONINFOA versionRecord = {};  // as it came
  int loads = 0;                      // of the library for themes
  int frees = 0;                      // of any
  std::vector<std::pair<HWND, DWORD>> textures;
};
System scripted;

// The system's own, taken before any table is patched.
template <typename Function>
Function* Real(const char* name) {
  return reinterpret_cast<Function*>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), name));
}
const auto realLoadLibrary = Real<decltype(LoadLibraryA)>("LoadLibraryA");
const auto realGetProcAddress = Real<decltype(GetProcAddress)>("GetProcAddress");
const auto realFreeLibrary = Real<decltype(FreeLibrary)>("FreeLibrary");

BOOL WINAPI TellVersion(OSVERSIONINFOA* version) {
  scripted.versionRecord = *version;
  version->dwMajorVersion = scripted.major;
  version->dwMinorVersion = scripted.minor;
  return scripted.tellsVersion;
}

HMODULE WINAPI Load(const char* name) {
  if (std::string(name) != themeLibrary) return realLoadLibrary(name);
  if (!scripted.hasThemeLibrary) return nullptr;
  ++scripted.loads;
  return realLoadLibrary(name);
}

BOOL WINAPI Free(HMODULE module) {
  ++scripted.frees;
  return realFreeLibrary(module);
}

HRESULT WINAPI TakeTexture(HWND window, DWORD flags) {
  scripted.textures.emplace_back(window, flags);
  return scripted.textureResult;
}

FARPROC WINAPI FindEntry(HMODULE module, const char* name) {
  if (std::string(name) != textureEntry) return realGetProcAddress(module, name);
  return scripted.hasTextureEntry ? reinterpret_cast<FARPROC>(&TakeTexture) : nullptr;
}

// Puts the scripted system under a module.
struct SystemPatch {
  explicit SystemPatch(HMODULE module)
      : version(module, "GetVersionExA", &TellVersion),
        load(module, "LoadLibraryA", &Load),
        entry(module, "GetProcAddress", &FindEntry),
        free(module, "FreeLibrary", &Free) {
    scripted = {};
  }

  const ImportPatch<decltype(TellVersion)> version;
  const ImportPatch<decltype(Load)> load;
  const ImportPatch<decltype(FindEntry)> entry;
  const ImportPatch<decltype(Free)> free;
};

// --- the binding by itself

class Theme : public testing::Test {
 protected:
  const HWND window = reinterpret_cast<HWND>(0x1234);

 private:
  const SystemPatch patch{GetModuleHandleW(nullptr)};
};

TEST_F(Theme, is_bound_where_there_are_themes) {
  CTheme theme;
  EXPECT_EQ(0, theme.Load());
  EXPECT_NE(nullptr, theme.m_module);
  EXPECT_EQ(1, scripted.loads);
}

TEST_F(Theme, asks_for_the_version_with_a_cleared_record_of_148_bytes) {
  CTheme theme;
  theme.Load();
  OSVERSIONINFOA cleared = {};
  cleared.dwOSVersionInfoSize = 148;
  EXPECT_EQ(0, std::memcmp(&cleared, &scripted.versionRecord, sizeof cleared));
}

TEST_F(Theme, a_system_that_does_not_tell_its_version_is_a_failure) {
  scripted.tellsVersion = FALSE;
  CTheme theme;
  EXPECT_EQ(1, theme.Load());
  EXPECT_EQ(nullptr, theme.m_module);
  EXPECT_EQ(0, scripted.loads);
}

TEST_F(Theme, is_not_looked_for_on_systems_before_5_1) {
  for (const auto& [major, minor] : {std::pair<DWORD, DWORD>{5, 0}, {4, 10}, {4, 0}, {0, 1}}) {
    scripted.major = major;
    scripted.minor = minor;
    CTheme theme;
    EXPECT_EQ(0, theme.Load());
    EXPECT_EQ(nullptr, theme.m_module);
    EXPECT_EQ(1, theme.EnableDialogTexture(window, enableTab)) << major << '.' << minor;
  }
  EXPECT_EQ(0, scripted.loads);
}

TEST_F(Theme, is_looked_for_from_5_1_on) {
  for (const auto& [major, minor] : {std::pair<DWORD, DWORD>{5, 1}, {5, 2}, {6, 0}, {6, 1}, {10, 0}}) {
    scripted.major = major;
    scripted.minor = minor;
    CTheme theme;
    EXPECT_EQ(0, theme.Load());
    EXPECT_NE(nullptr, theme.m_module) << major << '.' << minor;
  }
}

TEST_F(Theme, a_missing_library_is_a_failure) {
  scripted.hasThemeLibrary = false;
  CTheme theme;
  EXPECT_EQ(1, theme.Load());
  EXPECT_EQ(nullptr, theme.m_module);
  EXPECT_EQ(1, theme.EnableDialogTexture(window, enableTab));
}

TEST_F(Theme, a_library_without_the_entry_is_a_failure) {
  scripted.hasTextureEntry = false;
  CTheme theme;
  EXPECT_EQ(1, theme.Load());
  EXPECT_NE(nullptr, theme.m_module);
  EXPECT_EQ(1, theme.EnableDialogTexture(window, enableTab));
}

TEST_F(Theme, without_a_load_there_is_no_entry) {
  EXPECT_EQ(1, CTheme().EnableDialogTexture(window, enableTab));
  EXPECT_TRUE(scripted.textures.empty());
}

TEST_F(Theme, hands_on_the_window_and_the_flags) {
  CTheme theme;
  theme.Load();
  EXPECT_EQ(0, theme.EnableDialogTexture(window, 5));
  EXPECT_EQ((std::vector<std::pair<HWND, DWORD>>{{window, 5}}), scripted.textures);
}

TEST_F(Theme, a_result_above_0_is_2_and_any_other_0) {
  CTheme theme;
  theme.Load();
  for (const auto& [result, expected] :
       {std::pair<HRESULT, int>{S_FALSE, 2}, {100, 2}, {S_OK, 0}, {E_FAIL, 0}, {-1, 0}}) {
    scripted.textureResult = result;
    EXPECT_EQ(expected, theme.EnableDialogTexture(window, enableTab)) << result;
  }
}

TEST_F(Theme, frees_the_library_at_its_end) {
  {
    CTheme theme;
    theme.Load();
    EXPECT_EQ(0, scripted.frees);
  }
  EXPECT_EQ(1, scripted.frees);
}

TEST_F(Theme, frees_nothing_that_it_has_not_loaded) {
  scripted.hasThemeLibrary = false;
  {
    CTheme theme;
    theme.Load();
  }
  EXPECT_EQ(0, scripted.frees);
}

// --- the pages

class ThemedPages : public DialogTest {
 protected:
  // Both pages are opened, their rows are read and worked.
  void UseBothPages() {
    const Conversion drawn = Select(LayersDrawing({{"A", 7}, {"B", 7}}), [this] {
      SheetWindow sheet;
      pages.push_back(sheet.Page());
      EXPECT_EQ((std::vector<std::wstring>{L"A", L"B"}), sheet.Rows());
      sheet.ExpectTick(0, true);
      sheet.ClickBox(0);
      sheet.ExpectTick(0, false);
      sheet.ExpectTick(1, true);
      sheet.OpenPage(SheetWindow::lines);
      pages.push_back(sheet.Page());
      EXPECT_EQ(5u, sheet.Rows().size());
      sheet.ExpectTick(4, true);
      sheet.Ok();
    });
    EXPECT_EQ(0, drawn.code);
    EXPECT_EQ((Numbers{1}), drawn.Lines());
  }

  std::vector<HWND> pages;

 private:
  const SystemPatch patch{GetModuleHandleW(L"Hexlume.dll")};
};

TEST_F(ThemedPages, each_asks_for_the_texture_of_tabs) {
  UseBothPages();
  EXPECT_EQ((std::vector<std::pair<HWND, DWORD>>{{pages[0], enableTab}, {pages[1], enableTab}}),
            scripted.textures);
}

TEST_F(ThemedPages, free_what_they_load) {
  UseBothPages();
  EXPECT_GT(scripted.loads, 0);
  EXPECT_EQ(scripted.loads, scripted.frees);
}

TEST_F(ThemedPages, ask_for_nothing_on_a_system_without_themes) {
  scripted.major = 5;
  UseBothPages();
  EXPECT_TRUE(scripted.textures.empty());
}

TEST_F(ThemedPages, come_up_without_the_theme_library) {
  scripted.hasThemeLibrary = false;
  UseBothPages();
  EXPECT_TRUE(scripted.textures.empty());
}

TEST_F(ThemedPages, come_up_with_a_theme_library_that_has_no_textures) {
  scripted.hasTextureEntry = false;
  UseBothPages();
}

TEST_F(ThemedPages, come_up_on_a_system_that_does_not_tell_its_version) {
  scripted.tellsVersion = FALSE;
  UseBothPages();
  EXPECT_TRUE(scripted.textures.empty());
}

TEST_F(ThemedPages, the_size_dialog_asks_for_no_texture) {
  EXPECT_EQ(0, Scale(LargeDrawing(), PressOkOnSizeDialog).code);
  EXPECT_TRUE(scripted.textures.empty());
  EXPECT_EQ(0, scripted.loads);
}

}  // namespace
}  // namespace hexlume::dialog_theme_test
