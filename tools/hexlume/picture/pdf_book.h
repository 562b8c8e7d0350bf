// A PDF file of metafiles, a page for each.
#pragma once

#include <string>
#include <vector>

#include "tools/hexlume/picture/byte_sink.h"
#include "tools/hexlume/picture/pdf_file.h"
#include "tools/hexlume/picture/pdf_fonts.h"
#include "tools/hexlume/picture/picture_book.h"

namespace hexlume {

class PdfBook : public PictureBook {
 public:
  explicit PdfBook(ByteSink sink);

  void AddPage(const MetafileBytes& metafile, const std::string& title) override;

  size_t PageCount() const { return pages.size(); }

  void Finish() override;

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
