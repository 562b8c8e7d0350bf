#include "tools/hexlume/command/help_text.h"

#include <algorithm>

#include "tools/hexlume/command/option_table.h"
#include "tools/hexlume/drawing/status.h"

namespace hexlume {
namespace {

constexpr const char* helpStart =
    R"(Turns ASCII DXF drawings into Windows enhanced metafiles and pictures.

  hexlume [options] DRAWING.dxf [OUTPUT.emf]
  hexlume [options] -d DIR DRAWING.dxf... [FOLDER...]

Without an OUTPUT the result goes beside the drawing. - is standard input or output.
)";

std::string Padded(const std::string& text, size_t width) {
  return text + std::string(text.size() < width ? width - text.size() : 1, ' ');
}

std::string OptionLines() {
  constexpr size_t width = 27;
  std::string lines, group;
  for (const OptionRow& option : OptionTable()) {
    if (group != option.group) lines += '\n' + (group = option.group) + ":\n";
    // Long names are in one column, also of those that have a short one.
    const std::string form = WrittenForm(option);
    lines += Padded((form.compare(0, 2, "--") == 0 ? "      " : "  ") + form, width + 4) + option.help + '\n';
  }
  return lines;
}

// The statuses with their names, several in a line.
std::string ExitLines() {
  constexpr size_t width = 96;
  std::string lines = "\nExit status, that of the last drawing that has failed:\n", line = " ";
  for (int row = 0; row < statusRowCount; ++row) {
    const Status& status = StatusOf(static_cast<StatusRow>(row));
    const std::string item = ' ' + std::to_string(status.exit) + ' ' + status.name;
    if (line.size() + item.size() > width) {
      lines += line + '\n';
      line = " ";
    }
    line += item + (row + 1 < statusRowCount ? "," : "");
  }
  return lines + line + '\n';
}

}  // namespace

std::string HelpText() {
  return helpStart + OptionLines() + ExitLines();
}

}  // namespace hexlume
