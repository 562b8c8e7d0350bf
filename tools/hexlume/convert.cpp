#include "tools/hexlume/convert.h"

#include "tools/hexlume/emf_record.h"
#include "tools/hexlume/host_guard.h"
#include "tools/hexlume/metafile_bytes.h"

namespace hexlume {
namespace {

constexpr int faultStatus = 11;

// Runs a conversion that stores its metafile through the given pointer.
template <typename Call>
Conversion Run(Call&& call) {
  Conversion conversion;
  HENHMETAFILE metafile = nullptr;
  conversion.fault = CallGuarded([&] { conversion.code = call(&metafile); });
  conversion.metafile.reset(metafile);
  return conversion;
}

Conversion ConvertView(const std::string& drawing, const View& view, const Options& options) {
  const RECT part{view.left, view.top, view.right, view.bottom};
  return Run([&](HENHMETAFILE* out) {
    return vzDXFReMetaMake(drawing.c_str(), out, options.halfWidth, part, options.wholeText, options.dialogs,
                           options.monochrome);
  });
}

Conversion ConvertSheet(const std::string& drawing, const Options& options) {
  const auto make = options.fullSize ? vzDXFFullSizeMetaMake : vzDXFMetaMake;
  return Run([&](HENHMETAFILE* out) {
    return make(drawing.c_str(), out, options.dialogs, options.halfWidth, options.monochrome);
  });
}

Conversion Turn(const Options& options) {
  return Run([&](HENHMETAFILE* out) { return vzDXFRotMetaMake(out, options.monochrome); });
}

std::string FaultInWords(int32_t fault) {
  std::string words = "fault " + std::to_string(fault) + " left the library";
  if (fault == -1) words += ": a text is too long for its place, the drawing's path perhaps";
  return words;
}

}  // namespace

Conversion Convert(const std::string& drawing, const Options& options) {
  if (options.view) return ConvertView(drawing, *options.view, options);
  Conversion conversion = ConvertSheet(drawing, options);
  if (!options.rotate) return conversion;
  // Only the rotated metafile is wanted, so this one is released in any case.
  conversion.metafile.reset();
  return ExitStatusOf(conversion) == 0 ? Turn(options) : std::move(conversion);
}

std::string FailureInWords(const Conversion& conversion) {
  if (conversion.fault) return FaultInWords(*conversion.fault);
  switch (conversion.code) {
    case HEXLUME_NOT_OPENED: return "the drawing could be measured, but not opened again to be drawn";
    case HEXLUME_CANCELLED: return "cancelled in a dialog";
    case HEXLUME_NOT_A_DRAWING:
      return conversion.metafile ? "a fault ended the drawing; what was drawn up to there is kept"
                                 : "the file can't be read or is no drawing, or a fault ended it";
    default: return "the library returned " + std::to_string(conversion.code);
  }
}

bool GaveNoDrawing(const Conversion& conversion) {
  if (conversion.fault) return false;
  if (!conversion.metafile) return conversion.code == HEXLUME_NOT_A_DRAWING;
  // The library calls SetMapMode first, so an empty metafile has two records: the header and the end.
  constexpr size_t headerSize = 88, recordCount = 52, largestEmpty = 1024;
  if (GetEnhMetaFileBits(conversion.metafile.get(), 0, nullptr) > largestEmpty) return false;
  const std::vector<uint8_t> bytes = MetafileBytes(conversion.metafile.get());
  return bytes.size() >= headerSize && EmfRecord(bytes.data(), bytes.size()).UInt(recordCount) == 2;
}

int ExitStatusOf(const Conversion& conversion) {
  return conversion.fault ? faultStatus : conversion.code;
}

}  // namespace hexlume
