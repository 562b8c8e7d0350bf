#include "tools/hexlume/command/option_table.h"

#include "tools/hexlume/picture/picture.h"
#include "tools/hexlume/picture/picture_book.h"

namespace hexlume {
namespace {

constexpr ArgumentKind none = ArgumentKind::none, text = ArgumentKind::text, file = ArgumentKind::file,
                       folder = ArgumentKind::folder, number = ArgumentKind::number,
                       choice = ArgumentKind::choice;

constexpr const char* inputGroup = "Drawings";
constexpr const char* outputGroup = "Results";
constexpr const char* conversionGroup = "Conversion";
constexpr const char* answerGroup = "Layers, line types, scale";
constexpr const char* manyGroup = "Many drawings";
constexpr const char* otherGroup = "Other";

const OptionRow inputRows[] = {
    {inputGroup, "recursive", nullptr, none, "Convert all drawings in folders and in those below them",
     "The names of these drawings end in .dxf, in upper or lower case. Links to folders aren't followed.",
     false, nullptr, nullptr},
    {inputGroup, "files-from", "LIST", file, "Read the names of drawings from a file, - for standard input",
     "The file has a name in each line.", false, nullptr, nullptr},
    {inputGroup, "null", nullptr, none, "With --files-from: names end with a byte 0, not with a line",
     "This is what find -print0 writes.", false, nullptr, nullptr},
    {inputGroup, "format", "FORMAT", choice, "How drawings are read: auto or as-is (default auto)",
     "auto: drawings of version AC1021 and later that are UTF-8 are converted with their characters, and "
     "without "
     "embedded objects; all others as they are. as-is: every drawing is read as it is, in code page 932.",
     false, nullptr, "auto as-is"},
};

const OptionRow folderRow = {
    outputGroup,
    "d",
    "DIR",
    folder,
    "Write the results below this folder",
    "The tree of a folder that is converted is kept below it. The folder itself must exist.",
    false,
    nullptr,
    nullptr};

const OptionRow toRow = {
    outputGroup,
    "to",
    "KINDS",
    text,
    "Kinds of results, with commas: emf, png, svg, pdf (default emf)",
    "The results have the drawing's name and the extension of their kind. On Windows there are emf and png.",
    false,
    nullptr,
    nullptr};

const OptionRow bookRow = {
    outputGroup,
    "pdf-book",
    "FILE",
    file,
    "Write a PDF file with a page for each drawing",
    "The pages are in the order of the drawings, each in its sheet's size, and have bookmarks. Without -d "
    "there are no other results.",
    false,
    nullptr,
    nullptr};

const OptionRow resultRows[] = {
    {outputGroup, "dpi", "N", number, "Dots per inch of a picture in pixels (default 96)", "", false, nullptr,
     nullptr},
    {outputGroup, "size", "N", number, "Longest side of a picture in pixels, instead of --dpi", "", false,
     nullptr, nullptr},
    {outputGroup, "list", nullptr, none, "List the calls in the metafile on standard output",
     "One call in each line.", false, nullptr, nullptr},
};

const OptionRow textsRow = {outputGroup, "svg-text", nullptr, none,   "Keep texts as texts in an SVG file",
                            "",          false,      nullptr, nullptr};

const OptionRow conversionRows[] = {
    {conversionGroup, "view", "L,T,R,B", text, "Convert only this part of the sheet, in 0.01 mm",
     "Left, top, right and bottom in hundredths of a millimetre from the sheet's left and top edge.", false,
     nullptr, nullptr},
    {conversionGroup, "whole-text", nullptr, none, "With --view: leave out texts that aren't wholly inside",
     "", false, nullptr, nullptr},
    {conversionGroup, "full-size", nullptr, none, "Draw the model at full size, without the drawing's scale",
     "", false, nullptr, nullptr},
    {conversionGroup, "fit", nullptr, none, "Measure the sheet from what is drawn, not from the header",
     "For previews, as many headers are wrong.", false, nullptr, nullptr},
    {conversionGroup, "rotate", nullptr, none, "Turn the sheet by 180 degrees", "", false, nullptr, nullptr},
    {conversionGroup, "mono", nullptr, none, "Draw everything in black", "", false, nullptr, nullptr},
    {conversionGroup, "half-width", nullptr, none, "Draw texts with half-width cells", "", false, nullptr,
     nullptr},
};

const OptionRow answerRows[] = {
    {answerGroup, "scale", "N", number, "Scale 1:N of a drawing beyond A0, N from 1 to 1000", "", false,
     nullptr, nullptr},
    {answerGroup, "hide-layer", "NAME", text, "Leave out this layer; repeat it for others",
     "Layers that the drawing has switched off or frozen are left out too.", true, nullptr, nullptr},
    {answerGroup, "hide-line-type", "FAMILY", choice,
     "Leave out lines: solid, dotted, dashed, chain, double-chain",
     "Repeat it for others. Layers that the drawing has switched off or frozen are left out too.", true,
     nullptr, "solid dotted dashed chain double-chain"},
    {answerGroup, "dialogs", "N", number, "Show dialogs: 1 for all, another number for the scale only",
     "Without a number: 1.", false, "1", nullptr},
    {answerGroup, "dialog-font", "N", number, "Font of the dialogs: 1 for the system's, others for their own",
     "", false, nullptr, nullptr},
};

const OptionRow manyRows[] = {
    {manyGroup, "jobs", "N", number, "Drawings at the same time (default: the processors)",
     "Each is converted in a worker process. With 0 all are converted one after the other in the tool's own "
     "process, without limits.",
     false, nullptr, nullptr},
    {manyGroup, "time-limit", "SECONDS", number, "Give a drawing up after this time (default 60)", "", false,
     nullptr, nullptr},
    {manyGroup, "memory-limit", "SIZE", text, "Give a drawing up beyond this memory, e.g. 500M (default 2G)",
     "", false, nullptr, nullptr},
    {manyGroup, "skip-unchanged", nullptr, none, "With -d: pass over drawings whose results are up to date",
     "Drawing, results, version and options must be those of the last time, as the file .hexlume-state in "
     "the "
     "folder has them.",
     false, nullptr, nullptr},
    {manyGroup, "report", "FILE", file, "Write what became of each drawing, as JSON; - for standard output",
     "One JSON object in each line.", false, nullptr, nullptr},
    {manyGroup, "quiet", nullptr, none, "Show failures only: neither progress nor warnings", "", false,
     nullptr, nullptr},
};

const OptionRow otherRows[] = {
    {otherGroup, "version", nullptr, none, "Show the version", "", false, nullptr, nullptr},
    {otherGroup, "h,help", nullptr, none, "Show this help", "", false, nullptr, nullptr},
};

std::vector<OptionRow> MakeTable() {
  std::vector<OptionRow> table(std::begin(inputRows), std::end(inputRows));
  table.push_back(folderRow);
  table.push_back(toRow);
  for (const PictureKind& kind : PictureKinds())
    table.push_back({outputGroup, kind.option, "FILE", file, kind.help, "", false, nullptr, nullptr});
  for (const PictureKind& kind : PictureKinds())
    if (kind.canKeepTexts) table.push_back(textsRow);
  if (HasPictureBooks()) table.push_back(bookRow);
  table.insert(table.end(), std::begin(resultRows), std::end(resultRows));
  table.insert(table.end(), std::begin(conversionRows), std::end(conversionRows));
  table.insert(table.end(), std::begin(answerRows), std::end(answerRows));
  table.insert(table.end(), std::begin(manyRows), std::end(manyRows));
  table.insert(table.end(), std::begin(otherRows), std::end(otherRows));
  return table;
}

}  // namespace

const std::vector<OptionRow>& OptionTable() {
  static const std::vector<OptionRow> table = MakeTable();
  return table;
}

std::vector<std::string> NamesOf(const OptionRow& option) {
  const std::string names = option.name;
  const size_t comma = names.find(',');
  if (comma == std::string::npos) return {names};
  return {names.substr(0, comma), names.substr(comma + 1)};
}

std::string HyphenatedName(const OptionRow& option) {
  const std::string name = NamesOf(option).back();
  return (name.size() == 1 ? "-" : "--") + name;
}

std::string WrittenForm(const OptionRow& option) {
  const std::vector<std::string> names = NamesOf(option);
  std::string form = names.size() > 1 ? '-' + names.front() + ", " : "";
  form += HyphenatedName(option);
  if (!option.argument) return form;
  return form + (option.implied ? "[=" : " ") + option.argument + (option.implied ? "]" : "");
}

}  // namespace hexlume
