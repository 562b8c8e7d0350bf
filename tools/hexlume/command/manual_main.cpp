// Prints what is made from the table of options for the build: hexlume_manual man|completion
#include <algorithm>
#include <iostream>
#include <string>

#include "tools/hexlume/command/option_table.h"
#include "tools/hexlume/drawing/status.h"

namespace hexlume {
namespace {

// Text for troff: hyphens as they are typed, nothing that begins a request.
std::string Troff(const std::string& text) {
  std::string escaped;
  for (const char letter : text) {
    if (letter == '-') escaped += '\\';
    escaped += letter == '\\' ? std::string("\\e") : std::string(1, letter);
  }
  return !escaped.empty() && (escaped[0] == '.' || escaped[0] == '\'') ? "\\&" + escaped : escaped;
}

std::string Sentence(const std::string& words) {
  return words.empty() || words.back() == '.' ? words : words + '.';
}

constexpr const char* manualStart = R"(.SH NAME
hexlume \- convert DXF drawings to enhanced metafiles and pictures
.SH SYNOPSIS
.B hexlume
.RI [ options ]
.IR DRAWING .dxf
.RI [ OUTPUT .emf]
.br
.B hexlume
.RI [ options ]
.B \-d
.I DIR
.IR DRAWING .dxf...
.RI [ FOLDER ...]
.SH DESCRIPTION
.B hexlume
converts drawings in ASCII DXF to enhanced metafiles and to pictures, each beside its drawing unless an
.I OUTPUT
or a folder is given.
.B \-
is standard input in place of a drawing, and standard output in place of a result.
Wildcards that the shell leaves are expanded.
.PP
A result is written beside the file of its name and then renamed: an earlier file stays whole until then.
.PP
Several drawings are converted in worker processes. A worker that crashes or exceeds a limit costs one drawing.
)";

constexpr const char* manualEnd = R"(.SH EXAMPLES
.B hexlume plan.dxf
.PP
writes plan.emf.
.PP
.B hexlume \-\-png plan.png \-\-dpi 150 plan.dxf plan.emf
.PP
converts a drawing and makes a picture of it.
.PP
.B hexlume \-d out \-\-recursive \-\-to emf,png \-\-skip\-unchanged \-\-report report.json archive
.PP
converts the drawings of a folder, and at the next start only those that have changed.
)";

void PrintManual() {
  std::cout << ".TH HEXLUME 1 \"\" \"hexlume " HEXLUME_VERSION "\"\n" << manualStart << ".SH OPTIONS\n";
  std::string group;
  for (const OptionRow& option : OptionTable()) {
    if (group != option.group) std::cout << ".SS " << Troff(group = option.group) << '\n';
    std::cout << ".TP\n.B " << Troff(WrittenForm(option)) << '\n' << Troff(Sentence(option.help)) << '\n';
    if (*option.more) std::cout << Troff(option.more) << '\n';
  }
  std::cout << ".SH EXIT STATUS\n";
  for (int row = 0; row < statusRowCount; ++row) {
    const Status& status = StatusOf(static_cast<StatusRow>(row));
    if (status.meaning)
      std::cout << ".TP\n.B " << status.exit << '\n' << Troff(Sentence(status.meaning)) << '\n';
  }
  std::cout << ".PP\nWhen several drawings are converted, it is that of the last one that failed.\n"
            << manualEnd;
}

std::string AllForms() {
  std::string forms;
  for (const OptionRow& option : OptionTable())
    for (const std::string& name : NamesOf(option))
      forms += (forms.empty() ? "" : " ") + std::string(name.size() == 1 ? "-" : "--") + name;
  return forms;
}

// The options whose argument is of a kind, as a pattern of the shell.
std::string PatternOf(ArgumentKind kind) {
  std::string pattern;
  for (const OptionRow& option : OptionTable())
    if (option.kind == kind && !option.implied)
      pattern += (pattern.empty() ? "" : " | ") + HyphenatedName(option);
  return pattern;
}

void PrintCase(const std::string& pattern, const std::string& command) {
  std::cout << "    " << pattern << ")\n      " << command << "\n      return\n      ;;\n";
}

void PrintCompletion() {
  std::cout << "# Completion of hexlume for bash.\n"
               "_hexlume() {\n"
               "  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]}\n"
               "  COMPREPLY=()\n"
               "  case \"$before\" in\n";
  for (const OptionRow& option : OptionTable())
    if (option.choices)
      PrintCase(HyphenatedName(option),
                "mapfile -t COMPREPLY < <(compgen -W \"" + std::string(option.choices) + "\" -- \"$word\")");
  PrintCase(PatternOf(ArgumentKind::folder), "mapfile -t COMPREPLY < <(compgen -d -- \"$word\")");
  PrintCase(PatternOf(ArgumentKind::file), "mapfile -t COMPREPLY < <(compgen -f -- \"$word\")");
  PrintCase(PatternOf(ArgumentKind::number) + " | " + PatternOf(ArgumentKind::text), ":");
  std::cout
      << "  esac\n"
         "  case \"$word\" in\n"
         "    -*) mapfile -t COMPREPLY < <(compgen -W \"" +
             AllForms() +
             "\" -- \"$word\") ;;\n"
             "    *) mapfile -t COMPREPLY < <(compgen -d -- \"$word\"; compgen -f -X '!*.[dD][xX][fF]' -- "
             "\"$word\") ;;\n"
             "  esac\n"
             "}\n"
             "complete -o filenames -F _hexlume hexlume\n";
}

}  // namespace
}  // namespace hexlume

int main(int argc, char** argv) {
  const std::string wanted = argc == 2 ? argv[1] : "";
  if (wanted == "man") {
    hexlume::PrintManual();
  } else if (wanted == "completion") {
    hexlume::PrintCompletion();
  } else {
    std::cerr << "usage: hexlume_manual man|completion\n";
    return 64;
  }
  return 0;
}
