#include "tools/hexlume/convert.h"

#include <hexlume.h>

#include <memory>
#include <optional>
#include <type_traits>

#include "tools/hexlume/emf_record.h"
#include "tools/hexlume/host_convert.h"
#include "tools/hexlume/host_guard.h"

namespace hexlume {
namespace {

constexpr int faultStatus = 11;

struct DeleteMetafile {
  void operator()(HENHMETAFILE metafile) const { DeleteEnhMetaFile(metafile); }
};
using Metafile = std::unique_ptr<std::remove_pointer_t<HENHMETAFILE>, DeleteMetafile>;

// What one of the nine exports has given.
struct Outcome {
  int32_t code = HEXLUME_OK;     // what it returned
  std::optional<int32_t> fault;  // the number of a fault that left it instead
  Metafile metafile;
};

// Runs a conversion that stores its metafile through the given pointer.
template <typename Call>
Outcome Run(Call&& call) {
  Outcome outcome;
  HENHMETAFILE metafile = nullptr;
  outcome.fault = CallGuarded([&] { outcome.code = call(&metafile); });
  outcome.metafile.reset(metafile);
  return outcome;
}

Outcome ConvertView(const std::string& drawing, const View& view, const Options& options) {
  const RECT part{view.left, view.top, view.right, view.bottom};
  return Run([&](HENHMETAFILE* out) {
    return vzDXFReMetaMake(drawing.c_str(), out, options.halfWidth, part, options.wholeText, options.dialogs,
                           options.monochrome);
  });
}

Outcome ConvertSheet(const std::string& drawing, const Options& options) {
  const auto make = options.fullSize ? vzDXFFullSizeMetaMake : vzDXFMetaMake;
  return Run([&](HENHMETAFILE* out) {
    return make(drawing.c_str(), out, options.dialogs, options.halfWidth, options.monochrome);
  });
}

Outcome Turn(const Options& options) {
  return Run([&](HENHMETAFILE* out) { return vzDXFRotMetaMake(out, options.monochrome); });
}

int ExitStatusOf(const Outcome& outcome) {
  return outcome.fault ? faultStatus : outcome.code;
}

Outcome CallExports(const std::string& drawing, const Options& options) {
  if (options.view) return ConvertView(drawing, *options.view, options);
  Outcome outcome = ConvertSheet(drawing, options);
  if (!options.rotate) return outcome;
  // Not what was asked for: given back whether it can be turned or not.
  outcome.metafile.reset();
  return ExitStatusOf(outcome) == 0 ? Turn(options) : std::move(outcome);
}

std::string FaultInWords(int32_t fault) {
  std::string words = "fault " + std::to_string(fault) + " left the library";
  if (fault == -1) words += ": a text is too long for its place, the drawing's path perhaps";
  return words;
}

std::string FailureInWords(const Outcome& outcome) {
  if (outcome.fault) return FaultInWords(*outcome.fault);
  switch (outcome.code) {
    case HEXLUME_NOT_OPENED: return "the drawing could be measured, but not opened again to be drawn";
    case HEXLUME_CANCELLED: return "cancelled in a dialog";
    case HEXLUME_NOT_A_DRAWING:
      return outcome.metafile ? "a fault ended the drawing; what was drawn up to there is kept"
                              : "the file can't be read or is no drawing, or a fault ended it";
    default: return "the library returned " + std::to_string(outcome.code);
  }
}

MetafileBytes BytesOf(HENHMETAFILE metafile) {
  MetafileBytes bytes(GetEnhMetaFileBits(metafile, 0, nullptr));
  bytes.resize(GetEnhMetaFileBits(metafile, static_cast<UINT>(bytes.size()), bytes.data()));
  return bytes;
}

}  // namespace

Conversion Convert(const std::string& drawing, const Options& options) {
  if (options.NeedsHostLibrary()) return ConvertByHostLibrary(drawing, options);
  const Outcome outcome = CallExports(drawing, options);
  Conversion conversion;
  conversion.status = ExitStatusOf(outcome);
  if (conversion.status != 0) conversion.failure = FailureInWords(outcome);
  if (conversion.status == 0) conversion.unknownLayers = UnknownHiddenLayers(options.dialogAnswers);
  if (outcome.metafile) conversion.metafile = BytesOf(outcome.metafile.get());
  return conversion;
}

bool GaveNoDrawing(const Conversion& conversion) {
  const MetafileBytes& bytes = conversion.metafile;
  if (bytes.empty()) return conversion.status == HEXLUME_NOT_A_DRAWING;
  // The library calls SetMapMode first, so an empty metafile has two records: the header and the end.
  constexpr size_t headerSize = 88, recordCount = 52;
  return bytes.size() >= headerSize && EmfRecord(bytes.data(), bytes.size()).UInt(recordCount) == 2;
}

}  // namespace hexlume
