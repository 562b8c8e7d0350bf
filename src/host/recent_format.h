// Gives the converters a recent drawing ($ACADVER AC1021 and later) as an older version would have it, while
// it is read:
//   - its UTF-8 becomes code page 932. A line that isn't UTF-8 stays as it is;
//   - groups of embedded objects are left out, from a group 101 to the next group 0: they repeat the codes
//     of their entity with other meanings.
// Lines stay lines: their ends and their number, but for those left out, are those of the file. Any other
// drawing passes unchanged.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "driver/text_source.h"

namespace hexlume {

// What was changed in a drawing.
struct FormatChanges {
  struct LeftOut {
    int64_t position;  // in the text as it is given on: the lines are missing before it
    int64_t lines;
  };

  int64_t substituted = 0;  // characters that code page 932 doesn't have
  int64_t embedded = 0;     // embedded objects
  int64_t otherLines = 0;   // lines that aren't UTF-8
  int64_t firstOtherLine = 0;
  std::vector<LeftOut> leftOut;
};

class RecentFormat : public TextSource {
 public:
  // changes must outlive the source.
  RecentFormat(std::unique_ptr<TextSource> inner, FormatChanges& changes);

  size_t Read(char* buffer, size_t size) override;
  size_t ExpectedSize() const override;
  bool HasFailed() const override;

 private:
  void Start();
  bool FetchRaw();
  void ConvertLines();
  void TakeLine(std::string_view line);
  void Emit(std::string_view line);

  std::unique_ptr<TextSource> inner;
  FormatChanges& changes;
  bool started = false;
  bool isRecent = false;
  bool rawEnded = false;
  std::string raw;          // fetched, not converted yet
  size_t rawTaken = 0;      // bytes fetched in all
  size_t rawScanned = 0;    // of raw: holds no line end
  std::string text;         // converted
  size_t textTaken = 0;     // of text, by Read
  int64_t textBefore = 0;   // bytes that were in text earlier
  int64_t line = 0;         // of the file
  bool atCode = true;       // the next line is a group's code
  bool leavingOut = false;  // within an embedded object
};

}  // namespace hexlume
