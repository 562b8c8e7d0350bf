#include "tools/hexlume/drawing/host_convert.h"

#include <memory>
#include <string_view>
#include <utility>

#include "tools/hexlume/drawing/status.h"

namespace hexlume {
namespace {

Remark RemarkOf(const hexlume_remark& remark) {
  if (remark.code == HEXLUME_REMARK_NO_SUCH_LAYER)
    return {remark.name,
            "no layer has the name '" + std::string(remark.detail) + "' that --hide-layer gives"};
  const bool isMinor = remark.code == HEXLUME_REMARK_EMBEDDED;
  return {remark.name, remark.english, remark.count, isMinor};
}

bool HasReachedBound(const host::Result& result) {
  for (const hexlume_remark& remark : result.Remarks())
    if (remark.code == HEXLUME_REMARK_BOUND) return true;
  return false;
}

// Whether a fault isn't the drawing's own, which would reach a bound or come again. Then memory ran out, or a library below
// has failed, and what was drawn before is of no use.
bool IsPassing(const host::Result& fault, const DrawingSource& drawing, const host::Options& options) {
  if (fault.Status() != HEXLUME_STATUS_FAULT || fault.Metafile().empty() || HasReachedBound(fault))
    return false;
  const host::Result again = CallHost(hexlume_convert, drawing, options);
  return again.Status() != HEXLUME_STATUS_FAULT || again.Metafile() != fault.Metafile();
}

std::string LineText(int64_t line) {
  return line == 0 ? "" : " (line " + std::to_string(line) + ")";
}

}  // namespace

host::Options HostOptionsOf(const Options& options, int32_t format) {
  host::Options asked;
  asked.format = format;
  asked.sheet = options.fullSize ? HEXLUME_SHEET_FULL_SIZE : HEXLUME_SHEET_WHOLE;
  asked.turned = options.rotate;
  asked.fit = options.fit;
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

host::Result CallHost(host::Call::Function function, const DrawingSource& drawing,
                      const host::Options& options) {
  const hexlume_input input =
      drawing.bytes ? host::BytesInput(*drawing.bytes) : host::FileInput(drawing.path);
  return host::Call::Run(function, input, options);
}

MetafileBytes BytesOf(host::Result result) {
  const auto owner = std::make_shared<host::Result>(std::move(result));
  const std::string_view bytes = owner->Metafile();
  return {reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size(), owner};
}

Conversion ConvertByHostLibrary(const DrawingSource& drawing, const Options& options, int32_t format) {
  const host::Options asked = HostOptionsOf(options, format);
  host::Result result = CallHost(hexlume_convert, drawing, asked);
  if (IsPassing(result, drawing, asked)) return Ended(noMemoryStatus);
  const bool hasMetafile = !result.Metafile().empty();
  const bool isEmptySheet = result.Status() == HEXLUME_STATUS_NO_ENTITIES && hasMetafile;
  const StatusRow row = RowOfHostStatus(result.Status(), hasMetafile);
  Conversion conversion = Ended(isEmptySheet ? okStatus : row, LineText(result.Line()));
  if (isEmptySheet) conversion.remarks.push_back({StatusOf(row).name, StatusOf(row).words});
  // What can't be read has no layers either.
  const bool hasAll = !conversion.HasFailed() || hasMetafile;
  for (const hexlume_remark& remark : result.Remarks())
    if (hasAll || remark.code == HEXLUME_REMARK_BOUND) conversion.remarks.push_back(RemarkOf(remark));
  conversion.strokes = result.Number(HEXLUME_NUMBER_STROKES);
  conversion.substituted = result.Number(HEXLUME_NUMBER_SUBSTITUTED);
  conversion.embedded = result.Number(HEXLUME_NUMBER_EMBEDDED);
  if (hasMetafile) conversion.metafile = BytesOf(std::move(result));
  return conversion;
}

}  // namespace hexlume
