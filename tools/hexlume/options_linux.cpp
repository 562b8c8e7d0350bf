#include <hexlume_answers.h>
#include <iconv.h>

#include <algorithm>
#include <iterator>
#include <memory>

#include "tools/hexlume/dialog_answers.h"
#include "tools/hexlume/options_system.h"

namespace hexlume {
namespace {

struct Family {
  const char* name;
  int32_t number;
};

constexpr Family families[] = {
    {"solid", 0}, {"dotted", 2}, {"dashed", 1}, {"chain", 3}, {"double-chain", 4},
};

int32_t ParseFamily(const std::string& text) {
  const auto found = std::find_if(std::begin(families), std::end(families),
                                  [&text](const Family& family) { return family.name == text; });
  if (found != std::end(families)) return found->number;
  throw UsageError("--hide-line-type needs solid, dotted, dashed, chain or double-chain, not '" + text + "'");
}

class CodePageConverter {
 public:
  CodePageConverter() : descriptor(iconv_open("CP932", "UTF-8")) {
    if (descriptor == reinterpret_cast<iconv_t>(-1)) {
      throw UsageError("--hide-layer can't be used: the system lacks the conversion to code page 932");
    }
  }
  ~CodePageConverter() { iconv_close(descriptor); }
  CodePageConverter(const CodePageConverter&) = delete;
  CodePageConverter& operator=(const CodePageConverter&) = delete;

  // Converts a text from UTF-8. Returns false if a character isn't in the code page.
  bool Convert(std::string text, std::string& converted) {
    converted.resize(2 * text.size());
    char* from = text.data();
    char* to = converted.data();
    size_t fromLeft = text.size(), toLeft = converted.size();
    if (iconv(descriptor, &from, &fromLeft, &to, &toLeft) == static_cast<size_t>(-1)) return false;
    converted.resize(converted.size() - toLeft);
    return true;
  }

 private:
  iconv_t descriptor;
};

std::string LayerName(const std::string& text) {
  if (text.empty()) throw UsageError("--hide-layer needs the name of a layer");
  std::string name;
  if (!CodePageConverter().Convert(text, name)) {
    throw UsageError("--hide-layer needs a name in UTF-8 that code page 932 can hold, not '" + text + "'");
  }
  return name;
}

std::vector<std::string> TextsOf(const cxxopts::ParseResult& parsed, const char* option) {
  if (parsed.count(option) == 0) return {};
  return parsed[option].as<std::vector<std::string>>();
}

}  // namespace

const std::vector<OptionDeclaration>& SystemOptions() {
  static const std::vector<OptionDeclaration> options = {
      {"scale", "N", "With --dialogs: the scale 1:N of a drawing beyond A0, N from 1 to 1000", false},
      {"hide-layer", "NAME", "With --dialogs: leave out this layer; repeat it for others", true},
      {"hide-line-type", "FAMILY",
       "With --dialogs: leave out lines that are solid, dotted, dashed, chain or double-chain; repeat it for "
       "others",
       true},
  };
  return options;
}

void ReadSystemOptions(const cxxopts::ParseResult& parsed, Options& options) {
  // With any number other than 1, only the scale is asked for.
  const bool choosesLines = options.dialogs == 1;
  if (parsed.count("scale") != 0) {
    if (options.dialogs == 0) throw UsageError("--scale needs --dialogs");
    options.dialogAnswers.scale = ParseNumber("--scale", parsed["scale"].as<std::string>(), 1, 1000);
  }
  for (const std::string& text : TextsOf(parsed, "hide-layer")) {
    if (!choosesLines) throw UsageError("--hide-layer needs --dialogs");
    options.dialogAnswers.hiddenLayers.push_back({text, LayerName(text)});
  }
  for (const std::string& text : TextsOf(parsed, "hide-line-type")) {
    if (!choosesLines) throw UsageError("--hide-line-type needs --dialogs");
    options.dialogAnswers.hiddenFamilies.push_back(ParseFamily(text));
  }
}

void GiveDialogAnswers(const DialogAnswers& answers) {
  std::vector<const char*> layers;
  for (const HiddenLayer& layer : answers.hiddenLayers) layers.push_back(layer.name.c_str());
  vzSetDialogAnswers(answers.scale, layers.data(), static_cast<int32_t>(layers.size()),
                     answers.hiddenFamilies.data(), static_cast<int32_t>(answers.hiddenFamilies.size()));
}

std::vector<std::string> UnknownHiddenLayers(const DialogAnswers& answers) {
  std::vector<std::string> unknown;
  for (const HiddenLayer& layer : answers.hiddenLayers) {
    if (!vzHiddenLayerExists(layer.name.c_str())) unknown.push_back(layer.text);
  }
  return unknown;
}

}  // namespace hexlume
