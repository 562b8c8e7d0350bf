#include "tools/hexlume/picture/pdf_book.h"

#include <optional>
#include <utility>

#include "tools/hexlume/metafile/metafile_player.h"
#include "tools/hexlume/metafile/utf16.h"
#include "tools/hexlume/picture/number_text.h"
#include "tools/hexlume/picture/pdf_canvas.h"
#include "tools/hexlume/picture/picture.h"
#include "tools/hexlume/picture/vector_limits.h"

namespace hexlume {
namespace {

// A text in UTF-16, as bookmarks have it.
std::string TitleOf(const std::string& utf8) {
  std::string text = "<FEFF";
  for (const char16_t unit : Utf16Of(utf8)) {
    for (int shift = 12; shift >= 0; shift -= 4) text += "0123456789ABCDEF"[unit >> shift & 0xF];
  }
  return text + '>';
}

// A page is ended also after a failure.
std::optional<PictureError> Play(const MetafileBytes& metafile, PdfCanvas& canvas) {
  try {
    if (PlayMetafile(metafile.data(), metafile.size(), canvas)) return std::nullopt;
  } catch (const PictureError& error) {
    return error;
  }
  return PictureError("the metafile is malformed");
}

}  // namespace

PdfBook::PdfBook(ByteSink sink)
    : file(std::move(sink)), tree(file.NewObject()), resources(file.NewObject()) {}

void PdfBook::AddPage(const MetafileBytes& metafile, const std::string& title) {
  MetafileFrame frame;
  if (!ReadMetafileFrame(metafile.data(), metafile.size(), frame))
    throw PictureError("the metafile has no header");
  RequirePage(frame);
  const int contents = file.NewObject();
  file.BeginStream(contents);
  PdfCanvas canvas(frame, file, fonts, PictureWork(metafile.DrawingBytes()));
  const std::optional<PictureError> failure = Play(metafile, canvas);
  canvas.Finish();
  file.EndStream();
  pages.push_back({file.NewObject(), title});
  std::string page = "<</Type/Page/Parent " + PdfReference(tree) + "/MediaBox[0 0 ";
  AppendNumber(page, canvas.Measures().width * pointsInAHundredth);
  page += ' ';
  AppendNumber(page, canvas.Measures().height * pointsInAHundredth);
  file.WriteObject(pages.back().object, page + "]/Resources<</Font " + PdfReference(resources) +
                                            ">>/Contents " + PdfReference(contents) + ">>");
  if (failure) throw *failure;
}

// Returns the object of the bookmarks, or 0 if there are none.
int PdfBook::WriteBookmarks() {
  std::vector<std::pair<int, const Page*>> marks;
  for (const Page& page : pages)
    if (!page.title.empty()) marks.emplace_back(file.NewObject(), &page);
  if (marks.empty()) return 0;
  const int root = file.NewObject();
  for (size_t i = 0; i < marks.size(); ++i) {
    const auto& [object, page] = marks[i];
    std::string mark = "<</Title" + TitleOf(page->title) + "/Parent " + PdfReference(root) + "/Dest[" +
                       PdfReference(page->object) + "/Fit]";
    if (i > 0) mark += "/Prev " + PdfReference(marks[i - 1].first);
    if (i + 1 < marks.size()) mark += "/Next " + PdfReference(marks[i + 1].first);
    file.WriteObject(object, mark + ">>");
  }
  file.WriteObject(root, "<</Type/Outlines/First " + PdfReference(marks.front().first) + "/Last " +
                             PdfReference(marks.back().first) + "/Count " + std::to_string(marks.size()) +
                             ">>");
  return root;
}

void PdfBook::Finish() {
  fonts.Write(file, resources);
  std::string kids;
  for (const Page& page : pages) kids += PdfReference(page.object) + ' ';
  file.WriteObject(tree, "<</Type/Pages/Count " + std::to_string(pages.size()) + "/Kids[" + kids + "]>>");
  const int bookmarks = WriteBookmarks();
  const int catalogue = file.NewObject();
  std::string root = "<</Type/Catalog/Pages " + PdfReference(tree);
  if (bookmarks != 0) root += "/Outlines " + PdfReference(bookmarks) + "/PageMode/UseOutlines";
  file.WriteObject(catalogue, root + ">>");
  file.Finish(catalogue);
}

}  // namespace hexlume
