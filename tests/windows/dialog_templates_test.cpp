// The library's resources: as they are in its file, and as windows are made of them.
#include <windows.h>

#include <commctrl.h>
#include <prsht.h>

#include <cstring>
#include <ostream>

#include "dialogs/resource.h"
#include "windows/dialog_test.h"

namespace hexlume::dialog_templates_test {

struct Units {
  int left, top, width, height;
};

bool operator==(const Units& a, const Units& b) {
  return a.left == b.left && a.top == b.top && a.width == b.width && a.height == b.height;
}

std::ostream& operator<<(std::ostream& out, const Units& place) {
  return out << place.left << ", " << place.top << ", " << place.width << " by " << place.height;
}

namespace {

constexpr int noId = -1;
constexpr WORD button = 0x80, edit = 0x81, staticText = 0x82, listBox = 0x83, comboBox = 0x85;
const std::wstring classNames[] = {L"BUTTON", L"EDIT", L"STATIC", L"LISTBOX", L"SCROLLBAR", L"COMBOBOX"};

struct Control {
  int id;
  std::wstring className;
  DWORD style;
  std::wstring text;
  Units place;
};

struct Template {
  DWORD style, exStyle;
  Units place;
  std::wstring title, face;
  WORD points, weight;
  BYTE italic, charset;
  std::vector<Control> controls;
};

// Reads the parts of an extended dialog template, one after the other.
class Reader {
 public:
  explicit Reader(const void* start) : next(static_cast<const BYTE*>(start)) {}

  template <typename Number>
  Number Read() {
    Number number;
    std::memcpy(&number, next, sizeof number);
    next += sizeof number;
    return number;
  }

  Units ReadPlace() {
    Units place = {};
    for (int* number : {&place.left, &place.top, &place.width, &place.height}) *number = Read<short>();
    return place;
  }

  // A text, or the number of a class or resource.
  std::wstring ReadText() {
    const WORD first = Read<WORD>();
    if (first == 0) return {};
    if (first == 0xFFFF) {
      const WORD number = Read<WORD>();
      return number >= button && number <= comboBox ? classNames[number - button] : std::to_wstring(number);
    }
    std::wstring text(1, static_cast<wchar_t>(first));
    while (const WORD unit = Read<WORD>()) text += static_cast<wchar_t>(unit);
    return text;
  }

  // Controls begin at multiples of four bytes, as the template does.
  void Align() { next += (4 - reinterpret_cast<ULONG_PTR>(next) % 4) % 4; }

 private:
  const BYTE* next;
};

HMODULE Library() {
  return GetModuleHandleW(L"Hexlume.dll");
}

// Of no language: found whatever that of the machine is.
const void* Resource(const wchar_t* type, int number, DWORD* size = nullptr) {
  const WORD neutral = MAKELANGID(LANG_NEUTRAL, SUBLANG_NEUTRAL);
  const HRSRC found = FindResourceExW(Library(), type, MAKEINTRESOURCEW(number), neutral);
  if (!found) throw std::runtime_error("there is no resource " + std::to_string(number));
  if (size) *size = SizeofResource(Library(), found);
  return LockResource(LoadResource(Library(), found));
}

Control ReadControl(Reader& reader) {
  Control control;
  reader.Align();
  reader.Read<DWORD>();  // help
  EXPECT_EQ(0u, reader.Read<DWORD>()) << "extended style";
  control.style = reader.Read<DWORD>();
  control.place = reader.ReadPlace();
  control.id = reader.Read<int>();
  control.className = reader.ReadText();
  control.text = reader.ReadText();
  EXPECT_EQ(0, reader.Read<WORD>()) << "bytes of its own";
  return control;
}

Template ReadTemplate(int number) {
  Template read;
  Reader reader(Resource(MAKEINTRESOURCEW(5), number));
  EXPECT_EQ(1, reader.Read<WORD>()) << "version of extended templates";
  EXPECT_EQ(0xFFFF, reader.Read<WORD>()) << "mark of extended templates";
  reader.Read<DWORD>();  // help
  read.exStyle = reader.Read<DWORD>();
  read.style = reader.Read<DWORD>();
  const WORD count = reader.Read<WORD>();
  read.place = reader.ReadPlace();
  EXPECT_EQ(L"", reader.ReadText()) << "menu";
  EXPECT_EQ(L"", reader.ReadText()) << "class";
  read.title = reader.ReadText();
  read.points = reader.Read<WORD>();
  read.weight = reader.Read<WORD>();
  read.italic = reader.Read<BYTE>();
  read.charset = reader.Read<BYTE>();
  read.face = reader.ReadText();
  for (WORD i = 0; i < count; ++i) read.controls.push_back(ReadControl(reader));
  return read;
}

constexpr DWORD shown = WS_CHILD | WS_VISIBLE;
constexpr DWORD rowsStyle = shown | LBS_NOTIFY | LBS_OWNERDRAWFIXED | LBS_HASSTRINGS | LBS_NOINTEGRALHEIGHT |
                            WS_BORDER | WS_VSCROLL | WS_TABSTOP;

const std::vector<Control> sizeControls = {
    {1, L"BUTTON", shown | BS_DEFPUSHBUTTON | WS_TABSTOP, L"OK", {114, 7, 50, 14}},
    {2, L"BUTTON", shown | BS_PUSHBUTTON | WS_TABSTOP, L"キャンセル", {114, 24, 50, 14}},
    {1009, L"COMBOBOX", shown | CBS_DROPDOWN | WS_VSCROLL | WS_TABSTOP, L"", {64, 68, 39, 94}},
    {noId, L"STATIC", shown | SS_LEFT | WS_GROUP, L"幅:", {14, 34, 22, 11}},
    {1010, L"STATIC", shown | SS_RIGHT | WS_GROUP, L"width", {34, 34, 52, 11}},
    {noId, L"STATIC", shown | SS_LEFT | WS_GROUP, L"mm", {92, 34, 16, 11}},
    {noId, L"STATIC", shown | SS_LEFT | WS_GROUP, L"高さ:", {14, 52, 21, 11}},
    {1011, L"STATIC", shown | SS_RIGHT | WS_GROUP, L"height", {34, 52, 52, 11}},
    {noId, L"STATIC", shown | SS_LEFT | WS_GROUP, L"mm", {92, 52, 16, 11}},
    {noId, L"STATIC", shown | SS_LEFT | WS_GROUP, L"縮尺:", {14, 70, 25, 11}},
    {noId, L"STATIC", shown | SS_LEFT | WS_GROUP, L"1/", {54, 70, 8, 11}},
    {noId, L"STATIC", shown | SS_LEFTNOWORDWRAP | WS_GROUP, L"縮尺を設定して下さい。", {7, 11, 87, 9}},
    {noId, L"BUTTON", shown | BS_GROUPBOX, L"", {7, 21, 105, 66}},
};

void ExpectControl(const Control& expected, const Control& found) {
  EXPECT_EQ(expected.id, found.id);
  EXPECT_EQ(expected.className, found.className);
  EXPECT_EQ(expected.style, found.style);
  EXPECT_EQ(expected.text, found.text);
  EXPECT_EQ(expected.place, found.place);
}

void ExpectTemplatesFont(const Template& found) {
  EXPECT_EQ(L"ＭＳ Ｐゴシック", found.face);
  EXPECT_EQ(9, found.points);
  EXPECT_EQ(FW_NORMAL, found.weight);
  EXPECT_EQ(0, found.italic);
  EXPECT_EQ(SHIFTJIS_CHARSET, found.charset);
}

void ExpectPage(const Template& page, const std::wstring& title) {
  ExpectTemplatesFont(page);
  EXPECT_EQ(title, page.title);
  EXPECT_EQ((Units{0, 0, 119, 165}), page.place);
  ASSERT_EQ(1u, page.controls.size());
  ExpectControl({1003, L"LISTBOX", rowsStyle, L"", {7, 7, 106, 150}}, page.controls[0]);
}

class Resources : public DialogTest {};

TEST_F(Resources, template_106_is_the_page_of_the_layers) {
  ExpectPage(ReadTemplate(106), L"レイヤ名");
}

TEST_F(Resources, template_2002_is_the_page_of_the_line_types) {
  ExpectPage(ReadTemplate(2002), L"線種");
}

TEST_F(Resources, template_2001_is_the_size_dialog) {
  const Template dialog = ReadTemplate(2001);
  ExpectTemplatesFont(dialog);
  EXPECT_EQ(L"図面サイズ", dialog.title);
  EXPECT_EQ(171, dialog.place.width);
  EXPECT_EQ(93, dialog.place.height);
  EXPECT_EQ(static_cast<DWORD>(WS_POPUP | WS_CAPTION | WS_SYSMENU),
            dialog.style & (WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CHILD | WS_THICKFRAME));
  ASSERT_EQ(sizeControls.size(), dialog.controls.size());
  for (size_t i = 0; i < sizeControls.size(); ++i) ExpectControl(sizeControls[i], dialog.controls[i]);
}

BOOL CALLBACK AddNumber(HMODULE, const wchar_t*, wchar_t* name, LONG_PTR numbers) {
  reinterpret_cast<std::vector<int>*>(numbers)->push_back(static_cast<int>(reinterpret_cast<LONG_PTR>(name)));
  return TRUE;
}

TEST_F(Resources, hold_no_other_template) {
  std::vector<int> numbers;
  EnumResourceNamesW(Library(), MAKEINTRESOURCEW(5), AddNumber, reinterpret_cast<LONG_PTR>(&numbers));
  EXPECT_EQ((std::vector<int>{106, 2001, 2002}), numbers);
}

TEST_F(Resources, hold_the_caption_and_the_names_of_the_line_types) {
  const auto text = [](UINT id) {
    wchar_t loaded[64] = L"";
    LoadStringW(Library(), id, loaded, 64);
    return std::wstring(loaded);
  };
  EXPECT_EQ(L"レイヤ/線種選択", text(IDS_SELECTION));
  EXPECT_EQ(L"実線", text(IDS_SOLID));
  EXPECT_EQ(L"点線", text(IDS_DOTTED));
  EXPECT_EQ(L"破線", text(IDS_DASHED));
  EXPECT_EQ(L"一点鎖線", text(IDS_CHAIN));
  EXPECT_EQ(L"二点鎖線", text(IDS_DOUBLE_CHAIN));
}

TEST_F(Resources, the_manifest_asks_for_the_common_controls_of_version_6) {
  DWORD size = 0;
  const auto* bytes = static_cast<const char*>(Resource(MAKEINTRESOURCEW(24), 2, &size));
  const std::string manifest(bytes, size);
  const size_t dependency = manifest.find("<dependentAssembly>");
  ASSERT_NE(std::string::npos, dependency);
  EXPECT_NE(std::string::npos, manifest.find("name=\"Microsoft.Windows.Common-Controls\"", dependency));
  EXPECT_NE(std::string::npos, manifest.find("version=\"6.0.0.0\"", dependency));
  EXPECT_NE(std::string::npos, manifest.find("publicKeyToken=\"6595b64144ccf1df\"", dependency));
}

// The file of the library that answers a window's messages.
std::string LibraryOf(HWND window) {
  HMODULE module = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                     reinterpret_cast<const wchar_t*>(GetWindowLongPtrW(window, GWLP_WNDPROC)), &module);
  char file[MAX_PATH] = "";
  GetModuleFileNameA(module, file, sizeof file);
  CharLowerA(file);
  return file;
}

// In a folder beside the system's own, which is named after the version.
void ExpectVersion6(HWND control) {
  const std::string library = LibraryOf(control);
  EXPECT_NE(std::string::npos, library.find("microsoft.windows.common-controls_6595b64144ccf1df_6.0."))
      << library;
}

TEST_F(Resources, the_sheets_controls_are_those_of_version_6) {
  Select(LayersDrawing({{"A", 7}}), [] {
    const SheetWindow sheet;
    ExpectVersion6(sheet.Tabs());
    ExpectVersion6(ControlOf(sheet.window, IDOK));
    sheet.Ok();
  });
}

TEST_F(Resources, the_size_dialogs_controls_are_those_of_version_6) {
  Scale(LargeDrawing(), [] {
    const SizeWindow dialog;
    ExpectVersion6(ControlOf(dialog.window, IDOK));
    ExpectVersion6(ControlOf(dialog.window, 1010));
    dialog.Cancel();
  });
}

// The version as a file's properties show it.
struct VersionBlock {
  std::vector<BYTE> bytes;

  VersionBlock() {
    const std::wstring file = LibraryFile().wstring();
    DWORD ignored = 0;
    bytes.resize(GetFileVersionInfoSizeW(file.c_str(), &ignored));
    GetFileVersionInfoW(file.c_str(), 0, static_cast<DWORD>(bytes.size()), bytes.data());
  }

  template <typename Value>
  const Value* Query(const std::wstring& name) const {
    void* value = nullptr;
    UINT size = 0;
    return VerQueryValueW(bytes.data(), name.c_str(), &value, &size) ? static_cast<Value*>(value) : nullptr;
  }
};

TEST(Version, is_the_projects) {
  const VersionBlock block;
  const auto* fixed = block.Query<VS_FIXEDFILEINFO>(L"\\");
  ASSERT_NE(nullptr, fixed);
  for (const auto& [high, low] : {std::pair<DWORD, DWORD>{fixed->dwFileVersionMS, fixed->dwFileVersionLS},
                                  {fixed->dwProductVersionMS, fixed->dwProductVersionLS}}) {
    const std::string version =
        std::to_string(HIWORD(high)) + '.' + std::to_string(LOWORD(high)) + '.' + std::to_string(HIWORD(low));
    EXPECT_EQ(HEXLUME_VERSION, version);
    EXPECT_EQ(0, LOWORD(low));
  }
  EXPECT_EQ(static_cast<DWORD>(VFT_DLL), fixed->dwFileType);
}

TEST(Version, tells_its_texts_in_the_language_that_it_names) {
  const VersionBlock block;
  const auto* translation = block.Query<WORD>(L"\\VarFileInfo\\Translation");
  ASSERT_NE(nullptr, translation);
  wchar_t folder[64];
  swprintf(folder, 64, L"\\StringFileInfo\\%04x%04x\\", translation[0], translation[1]);
  const auto text = [&](const wchar_t* name) {
    const auto* value = block.Query<wchar_t>(std::wstring(folder) + name);
    return std::wstring(value ? value : L"none");
  };
  const std::wstring version(HEXLUME_VERSION, HEXLUME_VERSION + std::strlen(HEXLUME_VERSION));
  EXPECT_EQ(version, text(L"FileVersion"));
  EXPECT_EQ(version, text(L"ProductVersion"));
  EXPECT_EQ(L"Hexlume.dll", text(L"OriginalFilename"));
  EXPECT_EQ(L"Hexlume", text(L"ProductName"));
}

// --- in the windows

// A place and a size are rounded each by itself.
RECT PointsOf(HWND dialog, const Units& units) {
  const RECT points = DialogUnits(dialog, {units.left, units.top, units.width, units.height});
  return {points.left, points.top, points.left + points.right, points.top + points.bottom};
}

void ExpectPlace(const RECT& expected, const RECT& found) {
  EXPECT_EQ(expected.left, found.left);
  EXPECT_EQ(expected.top, found.top);
  EXPECT_EQ(expected.right, found.right);
  EXPECT_EQ(expected.bottom, found.bottom);
}

TEST_F(Resources, the_size_dialogs_controls_stand_where_its_template_says) {
  Scale(LargeDrawing(), [] {
    const SizeWindow dialog;
    RECT client = {};
    GetClientRect(dialog.window, &client);
    ExpectPlace(PointsOf(dialog.window, {0, 0, 171, 93}), client);
    HWND control = GetWindow(dialog.window, GW_CHILD);
    for (const Control& expected : sizeControls) {
      ASSERT_NE(nullptr, control);
      RECT place = PointsOf(dialog.window, expected.place);
      // A closed combo box is as high as its field.
      if (expected.className == L"COMBOBOX") place.bottom = PlaceIn(dialog.window, control).bottom;
      ExpectPlace(place, PlaceIn(dialog.window, control));
      control = GetWindow(control, GW_HWNDNEXT);
    }
    EXPECT_EQ(nullptr, control);
    dialog.Cancel();
  });
}

TEST_F(Resources, the_size_dialogs_texts_are_those_of_its_template) {
  Scale(LargeDrawing(), [] {
    const SizeWindow dialog;
    EXPECT_EQ(L"図面サイズ", TextOf(dialog.window));
    HWND control = GetWindow(dialog.window, GW_CHILD);
    for (const Control& expected : sizeControls) {
      // What the dialog writes itself isn't the template's.
      const bool isWritten = expected.id >= 1009;
      if (!isWritten) {
        EXPECT_EQ(expected.text, TextOf(control));
      }
      control = GetWindow(control, GW_HWNDNEXT);
    }
    dialog.Cancel();
  });
}

TEST_F(Resources, the_lists_of_both_pages_stand_where_their_templates_say) {
  Select(LayersDrawing({{"A", 7}}), [] {
    SheetWindow sheet;
    for (const int page : {SheetWindow::layers, SheetWindow::lines}) {
      sheet.OpenPage(page);
      ExpectPlace(PointsOf(sheet.Page(), {7, 7, 106, 150}), PlaceIn(sheet.Page(), sheet.List()));
    }
    sheet.Ok();
  });
}

TEST_F(Resources, the_tabs_have_the_titles_of_the_pages) {
  Select(LayersDrawing({{"A", 7}}), [] {
    const SheetWindow sheet;
    EXPECT_EQ(L"レイヤ/線種選択", TextOf(sheet.window));
    EXPECT_EQ(2, Ask(sheet.Tabs(), TCM_GETITEMCOUNT));
    for (const auto& [tab, title] : {std::pair<WPARAM, const wchar_t*>{0, L"レイヤ名"}, {1, L"線種"}}) {
      wchar_t text[32] = L"";
      TCITEMW item = {};
      item.mask = TCIF_TEXT;
      item.pszText = text;
      item.cchTextMax = 32;
      Ask(sheet.Tabs(), TCM_GETITEMW, tab, reinterpret_cast<LPARAM>(&item));
      EXPECT_STREQ(title, text);
    }
    sheet.Ok();
  });
}

}  // namespace
}  // namespace hexlume::dialog_templates_test
