// Names that the ANSI code page doesn't have, long ones, and wildcards, as a user of Windows types them.
#include <gtest/gtest.h>
#include <windows.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <string>

#include "host/host_drawings.h"
#include "support/tool_run.h"

namespace hexlume::wide_names_windows_test {
namespace {

namespace fs = std::filesystem;

using WideNames = ToolRun;

// Greek, Japanese, Korean and an emoji: no ANSI code page has them all.
const std::wstring name = L"\u03A9 \u56F3\u9762 \uD55C\uAD6D \U0001F600";
const std::string nameInUtf8 = "\u03A9 \u56F3\u9762 \uD55C\uAD6D \U0001F600";

int RunWide(const std::wstring& arguments) {
  const std::wstring tool = (ProgramFolder() / "hexlume").wstring();
  return _wsystem((L"\"\"" + tool + L"\" " + arguments + L" >out.txt 2>err.txt\"").c_str());
}

void WriteWide(const fs::path& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}

TEST_F(WideNames, a_drawing_has_any_name) {
  WriteWide(name + L".dxf", A3(Lines(2)));
  EXPECT_EQ(0, RunWide(L"\"" + name + L".dxf\""));
  EXPECT_EQ("", Contents("err.txt"));
  EXPECT_TRUE(fs::exists(name + L".emf"));
  EXPECT_EQ(0, RunWide(L"\"" + name + L".dxf\" \"" + name + L" 2.emf\""));
  EXPECT_TRUE(fs::exists(name + L" 2.emf"));
  EXPECT_EQ(fs::file_size(name + L".emf"), fs::file_size(name + L" 2.emf"));
  EXPECT_EQ(32, RunWide(L"\"nowhere " + name + L".dxf\""));
  EXPECT_EQ("hexlume: nowhere " + nameInUtf8 + ".dxf: not-found: there is no such file\r\n",
            Contents("err.txt"));
}

TEST_F(WideNames, many_drawings_have_any_names) {
  fs::create_directories(name + L"\\sub " + name);
  fs::create_directory(L"out " + name);
  WriteWide(name + L"\\sub " + name + L"\\" + name + L".DXF", A3(Lines(2)));
  EXPECT_EQ(0,
            RunWide(L"-d \"out " + name + L"\" --jobs 1 --report report.json --recursive \"" + name + L"\""));
  EXPECT_EQ("", Contents("err.txt"));
  EXPECT_TRUE(fs::exists(L"out " + name + L"\\sub " + name + L"\\" + name + L".emf"));
  const auto line = nlohmann::json::parse(Contents("report.json"));
  EXPECT_EQ(nameInUtf8 + "/sub " + nameInUtf8 + "/" + nameInUtf8 + ".DXF", line["path"]);
  EXPECT_EQ("ok", line["status"]);
}

TEST_F(WideNames, a_list_is_in_utf8) {
  WriteWide(name + L".dxf", A3(Lines(2)));
  fs::create_directory("out");
  Write("list.txt", nameInUtf8 + ".dxf\r\n");
  EXPECT_EQ(0, RunWide(L"-d out --files-from list.txt"));
  EXPECT_TRUE(fs::exists(L"out\\" + name + L".emf"));
}

TEST_F(WideNames, the_tool_expands_wildcards) {
  fs::create_directory("out");
  WriteWide(L"one.dxf", A3(Lines(1)));
  WriteWide(name + L".dxf", A3(Lines(1)));
  WriteWide(L"notes.txt", "");
  EXPECT_EQ(0, RunWide(L"-d out *.DXF"));
  EXPECT_EQ("", Contents("err.txt"));
  EXPECT_TRUE(fs::exists(L"out\\one.emf"));
  EXPECT_TRUE(fs::exists(L"out\\" + name + L".emf"));
  EXPECT_FALSE(fs::exists(L"out\\notes.emf"));
}

// 3 folders of 100 letters each: beyond the 260 characters of most programs.
TEST_F(WideNames, a_path_may_be_long) {
  const std::wstring here = L"\\\\?\\" + fs::current_path().wstring() + L"\\";
  const std::wstring nameOfFolder[] = {L"in", L"in\\" + std::wstring(100, L'a'),
                                       L"in\\" + std::wstring(100, L'a') + L"\\" + std::wstring(100, L'b')};
  const auto resultOf = [&](int i) { return here + L"out" + nameOfFolder[i].substr(2); };
  for (const std::wstring& folder : nameOfFolder)
    ASSERT_TRUE(CreateDirectoryW((here + folder).c_str(), nullptr));
  WriteWide(L"plan.dxf", A3(Lines(1)));
  const std::wstring drawing = nameOfFolder[2] + L"\\" + std::wstring(100, L'c') + L".dxf";
  ASSERT_TRUE(CopyFileW(L"plan.dxf", (here + drawing).c_str(), TRUE));
  fs::create_directory("out");
  EXPECT_EQ(0, RunWide(L"-d out --jobs 1 --recursive in"));
  EXPECT_EQ("", Contents("err.txt"));
  EXPECT_EQ(0, RunWide(L"\"" + drawing + L"\" plan.emf"));
  EXPECT_EQ("", Contents("err.txt"));
  EXPECT_TRUE(Exists("plan.emf"));
  // The test's own way of removing its folder can't do it.
  EXPECT_TRUE(DeleteFileW((resultOf(2) + L"\\" + std::wstring(100, L'c') + L".emf").c_str()));
  EXPECT_TRUE(DeleteFileW((here + drawing).c_str()));
  EXPECT_TRUE(DeleteFileW((here + L"out\\.hexlume-state").c_str()));
  for (int i = 2; i >= 0; --i) {
    EXPECT_TRUE(RemoveDirectoryW((here + nameOfFolder[i]).c_str()));
    EXPECT_TRUE(RemoveDirectoryW(resultOf(i).c_str()));
  }
}

}  // namespace
}  // namespace hexlume::wide_names_windows_test
