// A PDF file of metafiles, a page for each.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "tools/hexlume/picture/byte_sink.h"
#include "tools/hexlume/picture/pdf_file.h"
#include "tools/hexlume/picture/pdf_fonts.h"

namespace hexlume {

class PdfBook {
 public:
  explicit PdfBook(ByteSink sink);

  // Adds a page in the size of the metafile's frame. The title is its bookmark, in UTF-8; a page with an empty
  // one has none. Throws PictureError if there can be no page, or if not all of the metafile could be drawn on it;
  // the book can take more pages then.
  void AddPage(const uint8_t* metafile, size_t size, const std::string& title);

  size_t PageCount() const { return pages.size(); }

  // Ends the file. A file needs at least one page.
  void Finish();

 private:
  struct Page {
    int object;
    std::string title;
  };

  int WriteBookmarks();

  PdfFile file;
  PdfFonts fonts;
  int tree, resources;  // objects that all pages share
  std::vector<Page> pages;
};

}  // namespace hexlume
