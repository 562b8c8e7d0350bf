#include "platform/mapped_file.h"

#include <gtest/gtest.h>
#include <hexlume.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <string>
#include <thread>

#include "driver/text_stream.h"
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

TEST(MappedFile, a_file_shortened_meanwhile_ends_the_reader_as_a_fault_does) {
  const TemporaryFile file(std::string(mappedSize, 'A'));
  TextStream stream;
  ASSERT_TRUE(OpenText(stream, file.Path()));
  ASSERT_EQ(0, truncate(file.Path(), 4096));
  const auto readAll = [&stream] {
    char line[256];
    while (ReadLine(stream, line, sizeof line)) {
    }
  };
  EXPECT_THROW(GuardFaults(readAll), int32_t);
}

// The file is shortened at another moment each time: at the start, while the tables are read, while it is drawn.
TEST(MappedFile, a_drawing_shortened_meanwhile_ends_the_conversion_and_not_the_process) {
  std::string groups = "0 SECTION\n2 ENTITIES\n";
  for (int i = 0; i < 30'000; ++i) groups += "0 LINE\n8 0\n10 0\n20 0\n11 100\n21 100\n";
  const std::string bytes = DrawingBytes(groups + "0 ENDSEC\n0 EOF\n");
  ASSERT_GT(bytes.size(), size_t{1} << 20);
  for (int delay = 0; delay < 20; ++delay) {
    const TemporaryFile file(bytes);
    std::thread other([&file, delay] {
      std::this_thread::sleep_for(std::chrono::microseconds(300 * delay));
      EXPECT_EQ(0, truncate(file.Path(), 100));
    });
    HENHMETAFILE metafile = nullptr;
    try {
      vzFullSizeMetaMake(file.Path(), &metafile, 0, 0);
    } catch (int32_t code) {
      EXPECT_EQ(faultCode, code);
      EXPECT_FALSE(metafile);
    }
    if (metafile) DeleteEnhMetaFile(metafile);
    other.join();
  }
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
