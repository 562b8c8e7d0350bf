// A file with a picture of each of several metafiles, a page for each.
#pragma once

#include <memory>
#include <string>

#include "tools/hexlume/metafile/metafile_bytes.h"
#include "tools/hexlume/picture/byte_sink.h"

namespace hexlume {

class PictureBook {
 public:
  PictureBook() = default;
  virtual ~PictureBook() = default;
  PictureBook(const PictureBook&) = delete;
  PictureBook& operator=(const PictureBook&) = delete;

  // Adds a page in the size of the metafile's frame. The title is its bookmark, in UTF-8; a page with an empty
  // one has none. Throws PictureError if there can be no page, or if not all of the metafile could be drawn on it;
  // the book can take more pages then.
  virtual void AddPage(const MetafileBytes& metafile, const std::string& title) = 0;

  // Ends the file. A file needs at least one page.
  virtual void Finish() = 0;
};

// Whether the system has books. If not, the functions below aren't called.
bool HasPictureBooks();

// Throws PictureError if the metafile can be no page.
void CheckPage(const MetafileBytes& metafile);

// Throws PictureError if the system's part for pictures is missing.
std::unique_ptr<PictureBook> MakePictureBook(const ByteSink& sink);

}  // namespace hexlume
