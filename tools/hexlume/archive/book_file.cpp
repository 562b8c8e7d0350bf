#include "tools/hexlume/archive/book_file.h"

#include <utility>

#include "tools/hexlume/picture/picture.h"

namespace hexlume {
namespace {

std::unique_ptr<PictureBook> MakeBook(const std::string& path, const ByteSink& sink) {
  try {
    return MakePictureBook(sink);
  } catch (const PictureError& error) {
    throw OutputError(path, error.what());
  }
}

}  // namespace

BookFile::BookFile(const std::string& file, const TakeFailure& takeFailure)
    : path(file),
      failure(takeFailure),
      output(file),
      book(MakeBook(file, [this](const uint8_t* bytes, size_t size) { output.Write(bytes, size); })) {}

void BookFile::Take(size_t index, const std::string& title, MetafileBytes metafile) {
  earlySize += pageSize + metafile.size();
  early.emplace(index, Page{title, std::move(metafile)});
  for (auto first = early.begin(); first != early.end() && first->first == next; first = early.begin()) {
    const Page page = std::move(first->second);
    early.erase(first);
    earlySize -= pageSize + page.metafile.size();
    Add(next++, page);
  }
}

void BookFile::Add(size_t index, const Page& page) {
  if (page.metafile.empty()) return;
  try {
    // A page that isn't whole is still one.
    hasPages = true;
    book->AddPage(page.metafile, page.title);
  } catch (const PictureError& error) {
    failure(index, error.what());
  }
}

void BookFile::Finish() {
  if (!hasPages) throw OutputError(path, "no drawing gives a page");
  book->Finish();
  output.Commit();
}

}  // namespace hexlume
