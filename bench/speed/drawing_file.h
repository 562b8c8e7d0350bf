// Writes a drawing group by group into a file. It keeps none of it: what this program has in memory would count as
// memory of the processes that it starts.
#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

namespace hexlume::bench {

class DrawingFile {
 public:
  explicit DrawingFile(const std::string& path);

  void Text(int code, std::string_view value);
  void Whole(int code, int64_t value);
  void Number(int code, double value);  // with six decimals

  // Groups 10 and 20, or 11 and 21, and so on.
  void Point(int number, double x, double y);

  void Entity(std::string_view name, std::string_view layer = "0");
  void Line(double x1, double y1, double x2, double y2, std::string_view layer = "0");
  void Insert(std::string_view block, double x, double y);

  // Of a block with its base point at 0, 0.
  void BeginBlock(std::string_view name);
  void EndBlock();

  void BeginSection(std::string_view name);
  void EndSection();

  // The section of the version, and of the sheet's limits and extents. The version is for other programs.
  void Header(double width, double height, std::string_view version = "AC1009");

  // Writes the end mark, and throws if anything could not be written.
  void Close();

 private:
  struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };
  void Flush();

  std::string path;
  std::string groups;  // not yet written
  std::unique_ptr<std::FILE, CloseFile> file;
};

}  // namespace hexlume::bench
