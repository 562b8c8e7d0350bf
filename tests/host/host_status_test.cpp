// The answers that a host gets for drawings that can't be converted, or not to their end.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "hexlume_host.hpp"
#include "host/host_drawings.h"

namespace hexlume {
namespace {

using host::Convert;
using host::ConvertBytes;
using host::InspectBytes;

// A block that contains itself, after a line of the drawing.
std::string Endless() {
  return DrawingBytes(
      a3Header + "0 SECTION\n2 BLOCKS\n0 BLOCK\n2 B\n10 0\n20 0\n3 B\n0 INSERT\n2 B\n0 ENDBLK\n0 ENDSEC\n" +
      "0 SECTION\n2 ENTITIES\n" + Line() + "0 INSERT\n2 B\n10 0\n20 0\n" + end);
}

// Both calls say the same of it.
void ExpectStatus(const std::string& bytes, const std::string& name, int64_t line) {
  for (const host::Result& result : {ConvertBytes(bytes), InspectBytes(bytes)}) {
    EXPECT_EQ(name, result.StatusName()) << bytes.substr(0, 40);
    EXPECT_EQ(line, result.Line());
    EXPECT_FALSE(result);
    EXPECT_FALSE(result.Message(HEXLUME_ENGLISH).empty());
    EXPECT_FALSE(result.Message(HEXLUME_JAPANESE).empty());
    EXPECT_TRUE(result.Metafile().empty());
  }
}

TEST(HostStatus, ok) {
  const host::Result result = ConvertBytes(A3(Line()));
  EXPECT_EQ("ok", result.StatusName());
  EXPECT_EQ("The call has succeeded.", result.Message());
  EXPECT_EQ("正常に終了しました。", result.Message(HEXLUME_JAPANESE));
  EXPECT_EQ(1u, Count(Listing(result.Metafile()), "LineTo"));
  EXPECT_EQ(result.Remarks().begin(), result.Remarks().end());
}

TEST(HostStatus, a_missing_file) {
  const host::Result result = Convert("no such file.dxf");
  EXPECT_EQ("not-found", result.StatusName());
  EXPECT_EQ("There is no such file: no such file.dxf", result.Message());
  EXPECT_EQ("not-found", Convert("").StatusName());
  EXPECT_EQ("not-found", Convert("no such folder/file.dxf").StatusName());
  EXPECT_EQ("not-found", host::Inspect("no such file.dxf").StatusName());
  EXPECT_EQ("not-found", Convert(std::string(100000, 'a')).StatusName());
}

TEST(HostStatus, a_file_that_goes_away_between_the_passes) {
  const std::string path = TemporaryFolder() + "/hexlume_host_going.dxf";
  host::Options options;
  options.OnProgress([&](int32_t pass, int32_t, int64_t, int64_t) {
    if (pass == 2) std::filesystem::remove(path);
    return true;
  });
  std::ofstream(path, std::ios::binary) << A3(Line());
  EXPECT_EQ("not-found", Convert(path, options).StatusName());
  std::ofstream(path, std::ios::binary) << A3(Line());
  EXPECT_EQ("not-found", host::Inspect(path, options).StatusName());
}

TEST(HostStatus, a_folder) {
  EXPECT_EQ("not-a-file", Convert(TemporaryFolder()).StatusName());
  EXPECT_EQ("not-a-file", host::Inspect(TemporaryFolder()).StatusName());
}

TEST(HostStatus, no_bytes) {
  ExpectStatus("", "empty", 0);
  const TemporaryFile file("");
  EXPECT_EQ("empty", Convert(file.Path()).StatusName());
}

TEST(HostStatus, drawings_of_other_forms) {
  ExpectStatus(std::string("AC1015\0\0\0\0\0\6", 12) + std::string(500, '\x81'), "dwg", 0);
  ExpectStatus(std::string("AutoCAD Binary DXF\r\n\x1A\0\0SECTION\0", 31), "binary-dxf", 0);
  ExpectStatus("\x1F\x8B\x08" + std::string(100, 'x'), "compressed", 0);
  ExpectStatus(std::string("PK\x03\x04\x14\0", 6) + std::string(100, 'x'), "compressed", 0);
  ExpectStatus("BZh91AY" + std::string(100, 'x'), "compressed", 0);
}

TEST(HostStatus, texts_that_are_no_drawing) {
  ExpectStatus("Dear Sir or Madam,\n\nplease find enclosed\n", "no-dxf", 0);
  ExpectStatus(std::string(5000, '\n'), "no-dxf", 0);
  ExpectStatus(std::string(100000, 'x'), "no-dxf", 0);
  ExpectStatus(std::string(1, '\0'), "no-dxf", 0);
  ExpectStatus("\x1A", "no-dxf", 0);
}

// Lines: header 1 to 18, SECTION 19 and 20, TABLES 21 and 22, and so on.
TEST(HostStatus, a_drawing_that_ends_in_its_layers) {
  const std::string tables = "0 SECTION\n2 TABLES\n0 TABLE\n2 LAYER\n";
  ExpectStatus(DrawingBytes(a3Header + tables), "cut-off", 26);
  ExpectStatus(DrawingBytes(a3Header + tables + "0 LAYER\n2 A\n70 0\n"), "cut-off", 32);
  EXPECT_EQ("Line 26: The drawing is cut off here, and nothing can be drawn.",
            ConvertBytes(DrawingBytes(a3Header + tables)).Message());
  EXPECT_EQ("26 行目: 図面がここで途切れているため、何も描画できません。",
            ConvertBytes(DrawingBytes(a3Header + tables)).Message(HEXLUME_JAPANESE));
}

TEST(HostStatus, a_drawing_that_ends_in_its_header) {
  ExpectStatus(DrawingBytes("0 SECTION\n2 HEADER\n9 $LIMMIN\n10 0\n"), "cut-off", 8);
}

TEST(HostStatus, a_drawing_with_tables_without_layers) {
  ExpectStatus(DrawingBytes(a3Header + "0 SECTION\n2 TABLES\n0 TABLE\n2 STYLE\n0 ENDTAB\n0 ENDSEC\n" +
                            "0 SECTION\n2 ENTITIES\n" + Line() + end),
               "no-layers", 0);
}

TEST(HostStatus, a_drawing_without_entities) {
  ExpectStatus(DrawingBytes("0 SECTION\n2 HEADER\n0 ENDSEC\n0 EOF\n"), "no-entities", 0);
}

TEST(HostStatus, a_sheet_without_entities_gives_an_empty_metafile) {
  const host::Result result = ConvertBytes(DrawingBytes(a3Header + "0 EOF\n"));
  EXPECT_EQ("no-entities", result.StatusName());
  EXPECT_EQ("Frame(0, 0, 42000, 29700)\n", Listing(result.Metafile()));
  EXPECT_EQ(42000, result.Number(HEXLUME_NUMBER_SHEET_WIDTH));
}

TEST(HostStatus, a_drawing_without_its_end_mark_is_drawn_with_a_remark) {
  const std::string whole = A3(Lines(2));
  const host::Result result = ConvertBytes(whole.substr(0, whole.size() - std::string("0\nEOF\n").size()));
  EXPECT_TRUE(result);
  EXPECT_EQ(2u, Count(Listing(result.Metafile()), "LineTo"));
  const hexlume_remark& remark = *result.Remarks().begin();
  EXPECT_EQ(HEXLUME_REMARK_CUT_OFF, remark.code);
  EXPECT_STREQ("cut-off", remark.name);
  // 18 of the header, 4 of the section, 10 of each line, 2 of ENDSEC.
  EXPECT_EQ(18 + 4 + 2 * 10 + 2, remark.line);
  EXPECT_STREQ("Line 44: The drawing ends here without its end mark: it may be cut off.", remark.english);
  EXPECT_STREQ("", remark.detail);
}

// The line of the remark is where the text ends, not the file.
TEST(HostStatus, a_text_ends_at_a_byte_1a_or_without_a_line_end) {
  const std::string ended = A3(Lines(2));
  const std::string open = ended.substr(0, ended.size() - std::string("\n0\nEOF\n").size());
  EXPECT_EQ(44, ConvertBytes(open).Remarks().begin()->line);
  EXPECT_EQ(44, ConvertBytes(open + "\n\x1A" + "0\nEOF\n").Remarks().begin()->line);
}

TEST(HostStatus, a_line_with_a_byte_0_is_a_line) {
  const std::string ended = A3(Lines(2));
  const std::string open = ended.substr(0, ended.size() - std::string("0\nEOF\n").size());
  // After the 44 lines one with the byte in it, one that begins with it, and one more.
  EXPECT_EQ(47, ConvertBytes(open + std::string("a\0b\n\0\nc\n", 8)).Remarks().begin()->line);
}

TEST(HostStatus, a_fault_keeps_what_the_whole_sheet_has_drawn) {
  const host::Result result = ConvertBytes(Endless());
  EXPECT_EQ("fault", result.StatusName());
  EXPECT_EQ(1u, Count(Listing(result.Metafile()), "LineTo"));
  // Header 1 to 18, BLOCKS 19 to 22, the block's head 23 to 32, INSERT 33 to 36, and its end 37: the group
  // that was read last.
  EXPECT_EQ(37, result.Line());
}

TEST(HostStatus, a_fault_in_another_conversion_gives_no_metafile) {
  host::Options options;
  options.sheet = HEXLUME_SHEET_FULL_SIZE;
  const host::Result fullSize = ConvertBytes(Endless(), options);
  EXPECT_EQ("fault", fullSize.StatusName());
  EXPECT_EQ(37, fullSize.Line());
  EXPECT_TRUE(fullSize.Metafile().empty());
  options.sheet = HEXLUME_SHEET_PART;
  EXPECT_EQ("fault", ConvertBytes(Endless(), options).StatusName());
  host::Options turned;
  turned.turned = 1;
  const host::Result turnedResult = ConvertBytes(Endless(), turned);
  EXPECT_EQ("fault", turnedResult.StatusName());
  EXPECT_TRUE(turnedResult.Metafile().empty());
  // An inspection doesn't play blocks back.
  EXPECT_TRUE(InspectBytes(Endless()));
}

TEST(HostStatus, bytes_beyond_2_gb_are_refused_without_being_read) {
  hexlume_input input = host::BytesInput("0");
  input.byte_count = int64_t{1} << 31;
  hexlume_result* result = nullptr;
  EXPECT_EQ(HEXLUME_STATUS_TOO_LARGE, hexlume_convert(&input, nullptr, &result));
  EXPECT_EQ(HEXLUME_STATUS_TOO_LARGE, hexlume_result_status(result));
  hexlume_result_free(result);
  EXPECT_EQ(HEXLUME_STATUS_TOO_LARGE, hexlume_inspect(&input, nullptr, &result));
  hexlume_result_free(result);
}

TEST(HostStatus, a_file_beyond_2_gb_is_refused_without_being_read) {
  const std::string path = TemporaryFolder() + "/hexlume_host_large.dxf";
  {
    std::ofstream file(path, std::ios::binary);
    file << "0\n";
  }
  std::error_code error;
  std::filesystem::resize_file(path, int64_t{1} << 31, error);
  const host::Result result = Convert(path);
  std::filesystem::remove(path);
  if (error) GTEST_SKIP() << "the file system has no room for it";
  EXPECT_EQ("too-large", result.StatusName());
}

TEST(HostStatus, every_status_has_a_name_of_its_own) {
  std::string names;
  for (int32_t status = HEXLUME_STATUS_OK; status <= HEXLUME_STATUS_NO_MEMORY; ++status) {
    const std::string name = std::string(" ") + hexlume_status_name(status) + " ";
    EXPECT_EQ(std::string::npos, names.find(name));
    names += name;
  }
  EXPECT_EQ(nullptr, hexlume_status_name(HEXLUME_STATUS_NO_MEMORY + 1));
  EXPECT_EQ(nullptr, hexlume_status_name(-1));
}

}  // namespace
}  // namespace hexlume
