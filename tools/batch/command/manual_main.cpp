// Prints what is made from the table of commands for the build: hexlume_batch_manual man|completion
#include <iostream>

#include "tools/batch/command/command_line.h"

namespace hexlume::batch {
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

constexpr const char* manualStart = R"(.SH NAME
hexlume\-batch \- convert archives of DXF drawings on many machines
.SH SYNOPSIS
.B hexlume\-batch
.I COMMAND
.RI [ options ]
.SH DESCRIPTION
.B hexlume\-batch
lists the drawings of an archive in a plan, in chunks, and lets an engine convert the chunks: processes of this machine, GNU
parallel over ssh, or Slurm.
Each chunk writes its results to a file of its own, and can be started any number of times, on two machines at once too: a drawing
that has a result already is passed over.
.PP
All machines need the same version of the program, the same fonts, and the drawings and the folder of the batch under the same
paths.
.SH COMMANDS
)";

constexpr const char* manualEnd = R"(.SH EXAMPLES
.B hexlume\-batch plan /archive \-\-out /shared/batch \-\-to emf,png:256
.br
.B hexlume\-batch run /shared/batch \-\-engine slurm \-\-wait
.br
.B hexlume\-batch report /shared/batch \-\-failed
.SH SEE ALSO
.BR hexlume (1),
.BR sbatch (1),
.BR parallel (1)
)";

void PrintOption(const std::string& form, const std::string& help) {
  std::cout << ".TP\n.B " << Troff(form) << '\n' << Troff(help) << ".\n";
}

void PrintManual() {
  std::cout << ".TH HEXLUME-BATCH 1 \"\" \"hexlume " HEXLUME_VERSION "\"\n" << manualStart;
  for (const CommandForm& command : Commands()) {
    std::cout << ".SS " << command.name << ' ' << Troff(command.operands) << '\n'
              << Troff(command.help) << ".\n";
    for (const CommandOption& option : command.options)
      if (option.isShown) PrintOption(WrittenForm(option), option.help);
    if (!command.takesConversion) continue;
    std::cout << ".PP\nThe options of the conversion are those of\n.BR hexlume (1):\n";
    for (const std::string& form : ConversionForms()) std::cout << ".br\n.B " << Troff(form) << '\n';
  }
  std::cout << ".SH EXIT STATUS\n";
  for (const ExitRow& row : ExitRows()) PrintOption(std::to_string(row.exit), row.meaning);
  std::cout << manualEnd;
}

std::string WordsOf(const CommandForm& command) {
  std::string words;
  for (const CommandOption& option : command.options)
    if (option.isShown) words += std::string(words.empty() ? "--" : " --") + option.name;
  if (!command.takesConversion) return words;
  for (const std::string& form : ConversionForms()) words += ' ' + form.substr(0, form.find(' '));
  return words;
}

void PrintCompletion() {
  std::string commands;
  std::cout << "# Completion of hexlume-batch for bash.\n"
               "_hexlume_batch() {\n"
               "  local word=${COMP_WORDS[COMP_CWORD]} words=\n"
               "  COMPREPLY=()\n"
               "  case \"${COMP_WORDS[1]}\" in\n";
  for (const CommandForm& command : Commands()) {
    commands += (commands.empty() ? "" : " ") + std::string(command.name);
    std::cout << "    " << command.name << ") words=\"" << WordsOf(command) << "\" ;;\n";
  }
  std::cout << "  esac\n"
               "  if [ \"$COMP_CWORD\" -eq 1 ]; then\n"
               "    mapfile -t COMPREPLY < <(compgen -W \""
            << commands
            << " --help --version\" -- \"$word\")\n"
               "  elif [[ \"$word\" == -* ]]; then\n"
               "    mapfile -t COMPREPLY < <(compgen -W \"$words\" -- \"$word\")\n"
               "  else\n"
               "    mapfile -t COMPREPLY < <(compgen -f -- \"$word\")\n"
               "  fi\n"
               "}\n"
               "complete -o filenames -F _hexlume_batch hexlume-batch\n";
}

}  // namespace
}  // namespace hexlume::batch

int main(int argc, char** argv) {
  const std::string wanted = argc == 2 ? argv[1] : "";
  if (wanted == "man") {
    hexlume::batch::PrintManual();
  } else if (wanted == "completion") {
    hexlume::batch::PrintCompletion();
  } else {
    std::cerr << "usage: hexlume_batch_manual man|completion\n";
    return 64;
  }
  return 0;
}
