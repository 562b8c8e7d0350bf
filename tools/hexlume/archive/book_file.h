// A file with a page for each drawing, in the order of the drawings, whatever the order in which they are converted.
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <string>

#include "tools/hexlume/drawing/output.h"
#include "tools/hexlume/metafile/metafile_bytes.h"
#include "tools/hexlume/picture/picture_book.h"

namespace hexlume {

class BookFile {
 public:
  // Takes the number of a drawing whose page can't be made, and the reason.
  using TakeFailure = std::function<void(size_t index, const std::string& words)>;

  // Throws OutputError, as Take and Finish do.
  BookFile(const std::string& path, const TakeFailure& takeFailure);

  // Takes the page of a drawing, once for each. Without a metafile it has none.
  void Take(size_t index, const std::string& title, MetafileBytes metafile);

  // Whether so many pages wait for one before them that no further drawings should be begun.
  bool IsFull() const { return earlySize > mostEarly; }

  // Ends the file. It is only written if it has pages.
  void Finish();

 private:
  struct Page {
    std::string title;
    MetafileBytes metafile;
  };

  static constexpr size_t mostEarly = 64 << 20;
  static constexpr size_t pageSize = 1000;  // that is counted besides the metafile's

  void Add(size_t index, const Page& page);

  std::string path;
  TakeFailure failure;
  Output output;
  std::unique_ptr<PictureBook> book;
  bool hasPages = false;
  size_t next = 0;  // the drawing whose page comes next
  std::map<size_t, Page> early;
  size_t earlySize = 0;
};

}  // namespace hexlume
