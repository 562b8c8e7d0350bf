#include "platform/mapped_file.h"

#include <gtest/gtest.h>
#include <hexlume.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <iterator>
#include <string>
#include <thread>

#include "driver/group_reader.h"
#include "platform/fault_guard.h"
#include "support/text_drawing.h"

namespace hexlume::mapped_file_linux_test {
namespace {

constexpr size_t mappedSize = 3 << 20;  // larger than what is read instead

TEST(MappedFile, has_the_bytes_of_its_file) {
  const TemporaryFile file("AB\r\n");
  const auto mapped = MappedFile::Open(file.Path(), 4);
  ASSERT_TRUE(mapped);
  EXPECT_EQ("AB\r\n", mapped->Bytes());
}

TEST(MappedFile, a_smaller_file_is_none) {
  const TemporaryFile file("AB\r\n");
  EXPECT_FALSE(MappedFile::Open(file.Path(), 5));
}

TEST(MappedFile, what_is_no_file_is_none) {
  EXPECT_FALSE(MappedFile::Open(MissingPath().c_str(), 0));
  EXPECT_FALSE(MappedFile::Open(TemporaryFolder().c_str(), 0));
}

// A reader that opens and closes a pipe would end its writer.
TEST(MappedFile, a_pipe_is_none_and_not_opened) {
  const std::string path = MissingPath();
  ASSERT_EQ(0, mkfifo(path.c_str(), 0600));
  EXPECT_FALSE(MappedFile::Open(path.c_str(), 0));
  unlink(path.c_str());
}

TEST(MappedFile, lost_bytes_are_read_as_0) {
  const TemporaryFile file(std::string(mappedSize, 'A'));
  const auto mapped = MappedFile::Open(file.Path(), 1);
  ASSERT_TRUE(mapped);
  ASSERT_EQ(0, truncate(file.Path(), 4096));
  char kept = 0, lost = 1, last = 1;
  GuardFaults([&] {
    kept = mapped->Bytes()[4095];
    EXPECT_FALSE(mapped->IsShortened());
    lost = mapped->Bytes()[2 << 20];
    last = mapped->Bytes()[mappedSize - 1];
  });
  EXPECT_EQ('A', kept);
  EXPECT_EQ('\0', lost);
  EXPECT_EQ('\0', last);
  EXPECT_TRUE(mapped->IsShortened());
}

TEST(MappedFile, only_the_file_that_has_lost_bytes_is_shortened) {
  const TemporaryFile file(std::string(mappedSize, 'A'));
  const TemporaryFile otherFile(std::string(mappedSize, 'B'));
  const auto before = MappedFile::Open(otherFile.Path(), 1);
  const auto mapped = MappedFile::Open(file.Path(), 1);
  const auto after = MappedFile::Open(otherFile.Path(), 1);
  ASSERT_EQ(0, truncate(file.Path(), 0));
  GuardFaults([&] { EXPECT_EQ('\0', mapped->Bytes()[5000]); });
  EXPECT_TRUE(mapped->IsShortened());
  EXPECT_FALSE(before->IsShortened());
  EXPECT_FALSE(after->IsShortened());
  EXPECT_EQ('B', before->Bytes()[5000]);
}

TEST(MappedFile, bytes_that_were_passed_can_be_read_again) {
  constexpr size_t size = 9 << 20;
  std::string bytes(size, 'A');
  bytes[100] = 'B';
  const TemporaryFile file(bytes);
  const auto mapped = MappedFile::Open(file.Path(), 1);
  EXPECT_EQ(bytes, mapped->Bytes());
  for (size_t place = 0; place < size; place += 100'000) mapped->Passed(place);
  EXPECT_EQ(bytes, mapped->Bytes());
}

// Reads a part of the lines, has the file cut and reads the others: ReadGroup throws before it gives a group with lost bytes.
void ExpectNoLostGroup(size_t groupsBefore, off_t size) {
  std::string bytes;
  while (bytes.size() < mappedSize) bytes += "  1\nvalue\n";
  const TemporaryFile file(bytes);
  TextStream stream;
  ASSERT_TRUE(OpenText(stream, file.Path()));
  const auto readAll = [&] {
    for (size_t i = 0; i < groupsBefore; ++i) ASSERT_TRUE(ReadGroup(stream));
    ASSERT_EQ(0, truncate(file.Path(), size));
    // The rest of the last page is zeros of the file.
    while (ReadGroup(stream)) {
      if (Tell(stream) <= size) {
        EXPECT_TRUE(AtGroup(1, "value"));
      }
      EXPECT_LE(Tell(stream), (size + 4095) / 4096 * 4096);
    }
  };
  EXPECT_THROW(GuardFaults(readAll), int32_t) << groupsBefore << ' ' << size;
}

TEST(MappedFile, a_group_with_lost_bytes_ends_the_reader_as_a_fault_does) {
  for (const off_t size : {0, 1, 4095, 4096, 8192, 300'000, 1'000'000, 2'000'000})
    for (const size_t groupsBefore : {0, 1, 400, 26'214, 100'000}) ExpectNoLostGroup(groupsBefore, size);
}

// A mapping of a drawing that stays would be one of these.
size_t MappingsOf(const char* path) {
  std::ifstream maps("/proc/self/maps");
  size_t count = 0;
  for (std::string line; std::getline(maps, line);)
    if (line.find(path) != std::string::npos) ++count;
  return count;
}

struct Conversion {
  const char* name;
  int32_t (*convert)(const char* path, HENHMETAFILE* out);
};

const Conversion conversions[] = {
    {"vzMetaMake", [](const char* path, HENHMETAFILE* out) { return vzMetaMake(path, out, 0, 0); }},
    {"vzReMetaMake",
     [](const char* path, HENHMETAFILE* out) {
       return vzReMetaMake(path, out, 0, {0, 0, 10000, 10000}, 0, 0);
     }},
    {"vzRotMetaMake", [](const char*, HENHMETAFILE* out) { return vzRotMetaMake(out); }},
    {"vzFullSizeMetaMake",
     [](const char* path, HENHMETAFILE* out) { return vzFullSizeMetaMake(path, out, 0, 0); }},
};

// Entities whose converters own memory while they read, in a block, in its tables and without a box, so that all is measured.
std::string LongDrawing() {
  std::string tables = "0 SECTION\n2 TABLES\n0 TABLE\n2 LAYER\n";
  for (int i = 0; i < 2000; ++i) tables += "0 LAYER\n2 " + std::to_string(i) + "\n70 0\n62 7\n6 CONTINUOUS\n";
  std::string entities = "0 ENDTAB\n0 ENDSEC\n0 SECTION\n2 ENTITIES\n";
  for (int i = 0; i < 3000; ++i) {
    entities += "0 LINE\n8 0\n10 0\n20 0\n11 100\n21 100\n0 LWPOLYLINE\n8 0\n90 40\n70 1\n";
    for (int vertex = 0; vertex < 40; ++vertex) entities += "10 10\n20 " + std::to_string(vertex) + "\n";
    entities += "0 MTEXT\n8 0\n10 5\n20 5\n40 2\n1 " + std::string(40, 'A') + "\n";
  }
  return DrawingBytes(tables + entities + "0 ENDSEC\n0 EOF\n");
}

// The file is shortened at another moment each time: while it is measured, while its tables are read, while it is drawn.
TEST(MappedFile, a_drawing_shortened_meanwhile_ends_the_conversion_and_not_the_process) {
  const std::string bytes = LongDrawing();
  ASSERT_GT(bytes.size(), size_t{1} << 20);
  int32_t faults = 0;
  for (int round = 0; round < 40; ++round) {
    const Conversion& conversion = conversions[round % std::size(conversions)];
    const TemporaryFile file(bytes);
    HENHMETAFILE metafile = nullptr;
    // For vzRotMetaMake.
    EXPECT_EQ(HEXLUME_OK, vzMetaMake(file.Path(), &metafile, 0, 0));
    DeleteEnhMetaFile(metafile);
    metafile = nullptr;
    std::thread other([&file, round] {
      std::this_thread::sleep_for(std::chrono::microseconds(300 * round));
      EXPECT_EQ(0, truncate(file.Path(), 100));
    });
    int32_t code = 0;
    try {
      code = conversion.convert(file.Path(), &metafile);
      if (code == HEXLUME_NOT_A_DRAWING) ++faults;
    } catch (int32_t thrown) {
      ++faults;
      EXPECT_EQ(faultCode, thrown) << conversion.name;
      EXPECT_FALSE(metafile) << conversion.name;
    }
    if (metafile) DeleteEnhMetaFile(metafile);
    other.join();
    EXPECT_EQ(0u, MappingsOf(file.Path())) << conversion.name;
  }
  EXPECT_GT(faults, 0);
}

TEST(MappedFile, a_text_of_a_mapped_file_ends_at_its_end_mark) {
  const size_t place = 2 << 20;
  std::string bytes(mappedSize, '\n');
  bytes[place] = '\x1A';
  const TemporaryFile file(bytes);
  TextStream stream;
  ASSERT_TRUE(OpenText(stream, file.Path()));
  char line[256];
  size_t lines = 0;
  while (ReadLine(stream, line, sizeof line)) ++lines;
  EXPECT_EQ(place, lines);
}

}  // namespace
}  // namespace hexlume::mapped_file_linux_test
