// Converts drawings through both libraries: the same options must give the same bytes.
//
//   hexlume_host_comparison COUNT FOLDER... [GoogleTest's options]
//
// compares all drawings below the folders and COUNT drawings made by chance. Each conversion of the nine
// exports has a library that was just loaded, as the host library keeps nothing from an earlier call.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

#include "hexlume_host.hpp"
#include "support/comparable_bytes.h"
#include "support/leaving_fault.h"
#include "support/loaded_library.h"
#include "support/random_drawing.h"
#include "support/text_drawing.h"

namespace hexlume {

namespace {

// What an export has given.
struct Given {
  int32_t code = -1;
  bool faulted = false;
  std::string metafile;
};

std::string TakeBytes(HENHMETAFILE metafile) {
  if (!metafile) return {};
  std::string bytes(GetEnhMetaFileBits(metafile, 0, nullptr), '\0');
  GetEnhMetaFileBits(metafile, static_cast<UINT>(bytes.size()), reinterpret_cast<uint8_t*>(bytes.data()));
  DeleteEnhMetaFile(metafile);
  return bytes;
}

template <typename Call>
Given CallExport(Call call) {
  Given given;
  HENHMETAFILE metafile = nullptr;
  given.faulted = FaultLeaving([&] { given.code = call(&metafile); }).has_value();
  given.metafile = TakeBytes(metafile);
  return given;
}

void ExpectSame(const Given& given, const host::Result& result, const char* conversion) {
  const bool same = ComparableBytes(given.metafile) == ComparableBytes(std::string(result.Metafile()));
  EXPECT_TRUE(same) << conversion << ": " << given.metafile.size() << " bytes by the exports, "
                    << result.Metafile().size() << " by the host library";
  const bool fault = given.faulted || (given.code != HEXLUME_OK && !given.metafile.empty());
  if (fault) {
    EXPECT_EQ("fault", result.StatusName()) << conversion;
  } else if (given.code == HEXLUME_OK) {
    EXPECT_TRUE(result || result.Status() == HEXLUME_STATUS_NO_ENTITIES) << conversion << result.Message();
  } else {
    EXPECT_FALSE(result) << conversion;
    EXPECT_NE(HEXLUME_STATUS_FAULT, result.Status()) << conversion;
  }
}

struct Drawing {
  std::string path;
  std::string bytes;
};

void CompareBoth(const Given& given, const Drawing& drawing, host::Options options, const char* conversion) {
  options.format = HEXLUME_FORMAT_AS_IS;
  ExpectSame(given, host::Convert(drawing.path, options), conversion);
  ExpectSame(given, host::ConvertBytes(drawing.bytes, options), conversion);
}

void CompareWhole(const Drawing& drawing, int32_t halfWidth, int32_t monochrome) {
  const LoadedLibrary library;
  host::Options options;
  options.half_width = halfWidth;
  options.monochrome = monochrome;
  const Given upright = CallExport([&](HENHMETAFILE* out) {
    return library.dxfMetaMake(drawing.path.c_str(), out, 0, halfWidth, monochrome);
  });
  CompareBoth(upright, drawing, options, "whole");
  if (upright.code != HEXLUME_OK) return;
  options.turned = 1;
  CompareBoth(CallExport([&](HENHMETAFILE* out) { return library.dxfRotMetaMake(out, monochrome); }), drawing,
              options, "turned");
}

void CompareFullSize(const Drawing& drawing) {
  const LoadedLibrary library;
  host::Options options;
  options.sheet = HEXLUME_SHEET_FULL_SIZE;
  const Given upright = CallExport(
      [&](HENHMETAFILE* out) { return library.dxfFullSizeMetaMake(drawing.path.c_str(), out, 0, 0, 0); });
  CompareBoth(upright, drawing, options, "full size");
  if (upright.faulted || upright.code != HEXLUME_OK) return;
  options.turned = 1;
  CompareBoth(CallExport([&](HENHMETAFILE* out) { return library.dxfRotMetaMake(out, 0); }), drawing, options,
              "full size turned");
}

void ComparePart(const Drawing& drawing) {
  const LoadedLibrary library;
  host::Options options;
  options.sheet = HEXLUME_SHEET_PART;
  options.left = 2000;
  options.top = 3000;
  options.right = 21000;
  options.bottom = 29700;
  options.whole_texts = 1;
  CompareBoth(
      CallExport([&](HENHMETAFILE* out) {
        return library.dxfReMetaMake(drawing.path.c_str(), out, 0, {2000, 3000, 21000, 29700}, 1, 0, 0);
      }),
      drawing, options, "part");
}

// Every drawing in two ways; which ones changes from drawing to drawing.
void Compare(const Drawing& drawing, size_t number) {
  CompareWhole(drawing, number % 4 == 1, number % 4 == 2);
  if (number % 2 == 0)
    CompareFullSize(drawing);
  else
    ComparePart(drawing);
}

std::string FileBytes(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

class FileComparison : public testing::Test {
 public:
  FileComparison(std::filesystem::path drawing, size_t index) : path(std::move(drawing)), number(index) {}

 private:
  void TestBody() override { Compare({path.string(), FileBytes(path)}, number); }

  std::filesystem::path path;
  size_t number;
};

class RandomComparison : public testing::Test {
 public:
  explicit RandomComparison(uint32_t chosen) : seed(chosen) {}

 private:
  void TestBody() override {
    const std::string bytes = RandomDrawing(seed);
    const TemporaryFile file(bytes);
    Compare({file.Path(), bytes}, seed);
  }

  uint32_t seed;
};

bool IsDrawing(const std::filesystem::path& path) {
  std::string extension = path.extension().string();
  for (char& letter : extension) letter = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
  return extension == ".dxf";
}

void RegisterFiles(const std::string& folder) {
  std::vector<std::filesystem::path> drawings;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
    if (entry.is_regular_file() && IsDrawing(entry.path())) drawings.push_back(entry.path());
  std::sort(drawings.begin(), drawings.end());
  for (size_t i = 0; i < drawings.size(); ++i) {
    const std::filesystem::path& path = drawings[i];
    testing::RegisterTest("HostComparison", path.stem().string().c_str(), nullptr, nullptr, __FILE__,
                          __LINE__, [path, i]() -> FileComparison* { return new FileComparison(path, i); });
  }
}

void RegisterRandom(uint32_t count) {
  for (uint32_t seed = 1; seed <= count; ++seed)
    testing::RegisterTest("HostComparisonOfRandom", ("random_" + std::to_string(seed)).c_str(), nullptr,
                          nullptr, __FILE__, __LINE__,
                          [seed]() -> RandomComparison* { return new RandomComparison(seed); });
}

}  // namespace

}  // namespace hexlume

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (argc < 2) {
    std::fprintf(stderr, "usage: hexlume_host_comparison COUNT FOLDER...\n");
    return 64;
  }
  try {
    for (int i = 2; i < argc; ++i) hexlume::RegisterFiles(argv[i]);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
  hexlume::RegisterRandom(static_cast<uint32_t>(std::atoi(argv[1])));
  return RUN_ALL_TESTS();
}
