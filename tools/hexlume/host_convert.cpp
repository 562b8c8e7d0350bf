#include "tools/hexlume/host_convert.h"

#include <hexlume_host.hpp>

#include "tools/hexlume/system.h"

namespace hexlume {
namespace {

// The exit status that the nine exports would give for the same end.
int ExitStatusOf(const host::Result& result) {
  constexpr int faultStatus = 11, noDrawing = 30;
  switch (result.Status()) {
    case HEXLUME_STATUS_OK: return 0;
    case HEXLUME_STATUS_NO_ENTITIES: return result.Metafile().empty() ? noDrawing : 0;
    case HEXLUME_STATUS_FAULT: return result.Metafile().empty() ? faultStatus : noDrawing;
    default: return noDrawing;
  }
}

host::Options HostOptionsOf(const Options& options) {
  host::Options asked;
  // The same picture as without the answers.
  asked.format = HEXLUME_FORMAT_AS_IS;
  asked.sheet = options.fullSize ? HEXLUME_SHEET_FULL_SIZE : HEXLUME_SHEET_WHOLE;
  asked.turned = options.rotate;
  asked.monochrome = options.monochrome;
  asked.half_width = options.halfWidth;
  asked.denominator = options.dialogAnswers.scale;
  if (options.view) {
    asked.sheet = HEXLUME_SHEET_PART;
    asked.left = options.view->left;
    asked.top = options.view->top;
    asked.right = options.view->right;
    asked.bottom = options.view->bottom;
    asked.whole_texts = options.wholeText;
  }
  for (const std::string& layer : options.dialogAnswers.hiddenLayers) asked.HideLayer(layer);
  for (const int32_t family : options.dialogAnswers.hiddenFamilies) asked.hidden_line_types |= 1u << family;
  return asked;
}

}  // namespace

Conversion ConvertByHostLibrary(const std::string& drawing, const Options& options) {
  const host::Result result = host::Convert(Utf8Text(drawing), HostOptionsOf(options));
  Conversion conversion;
  conversion.status = ExitStatusOf(result);
  if (conversion.status != 0) conversion.failure = result.Message();
  for (const hexlume_remark& remark : result.Remarks())
    if (remark.code == HEXLUME_REMARK_NO_SUCH_LAYER) conversion.unknownLayers.emplace_back(remark.detail);
  conversion.metafile.assign(result.Metafile().begin(), result.Metafile().end());
  return conversion;
}

}  // namespace hexlume
