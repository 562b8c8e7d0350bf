#include <hexlume_answers.h>
#include <iconv.h>

#include "tools/hexlume/command/dialog_answers.h"
#include "tools/hexlume/command/options_system.h"

namespace hexlume {
namespace {

class CodePageConverter {
 public:
  CodePageConverter() : descriptor(iconv_open("CP932", "UTF-8")) {
    // NOLINTNEXTLINE(performance-no-int-to-ptr): iconv's own value for a failure
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
  std::string name;
  if (!CodePageConverter().Convert(text, name)) {
    throw UsageError("--hide-layer needs a name in UTF-8 that code page 932 can hold, not '" + text + "'");
  }
  return name;
}

}  // namespace

void CheckAnswersToDialogs(const Options& options) {
  // Any other number than 1 asks for the scale alone.
  if (options.dialogs != 1 && !options.dialogAnswers.hiddenLayers.empty())
    throw UsageError("--hide-layer needs --dialogs=1, or no dialogs");
  if (options.dialogs != 1 && !options.dialogAnswers.hiddenFamilies.empty())
    throw UsageError("--hide-line-type needs --dialogs=1, or no dialogs");
  for (const std::string& text : options.dialogAnswers.hiddenLayers) LayerName(text);
}

void GiveDialogAnswers(const DialogAnswers& answers) {
  std::vector<std::string> names;
  names.reserve(answers.hiddenLayers.size());
  for (const std::string& text : answers.hiddenLayers) names.push_back(LayerName(text));
  std::vector<const char*> layers;
  layers.reserve(names.size());
  for (const std::string& name : names) layers.push_back(name.c_str());
  vzSetDialogAnswers(answers.scale, layers.data(), static_cast<int32_t>(layers.size()),
                     answers.hiddenFamilies.data(), static_cast<int32_t>(answers.hiddenFamilies.size()));
}

std::vector<std::string> UnknownHiddenLayers(const DialogAnswers& answers) {
  std::vector<std::string> unknown;
  for (const std::string& text : answers.hiddenLayers)
    if (!vzHiddenLayerExists(LayerName(text).c_str())) unknown.push_back(text);
  return unknown;
}

}  // namespace hexlume
