#include "tools/hexlume/drawing/convert.h"

#include <hexlume.h>

#include <algorithm>
#include <optional>
#include <utility>

#include "tools/hexlume/drawing/drawing_look.h"
#include "tools/hexlume/drawing/exported_metafile.h"
#include "tools/hexlume/drawing/host_convert.h"
#include "tools/hexlume/drawing/host_guard.h"
#include "tools/hexlume/metafile/emf_record.h"
#include "tools/hexlume/metafile/sheet_ink.h"

namespace hexlume {
namespace {

constexpr int32_t drawingFault = 11;

// What one of the nine exports has given.
struct Outcome {
  int32_t code = HEXLUME_OK;     // what it returned
  std::optional<int32_t> fault;  // the number of a fault that left it instead
  uint32_t bounds = 0;           // that it has reached, as bits
  bool isLost = false;           // whether the metafile's file couldn't take it
  ExportedMetafile metafile;
};

// Runs a conversion that stores its metafile through the given pointer.
template <typename Call>
Outcome Run(StreamedMetafile* stream, Call&& call) {
  Outcome outcome;
  HENHMETAFILE metafile = nullptr;
  if (stream) stream->Begin();
  ForgetBounds();
  outcome.fault = CallGuarded([&] { outcome.code = call(&metafile); });
  outcome.bounds = ReachedBounds();
  outcome.isLost = stream && !stream->End();
  outcome.metafile.reset(metafile);
  return outcome;
}

Outcome ConvertView(const std::string& drawing, const View& view, const Options& options,
                    StreamedMetafile* stream) {
  const RECT part{view.left, view.top, view.right, view.bottom};
  return Run(stream, [&](HENHMETAFILE* out) {
    return vzDXFReMetaMake(drawing.c_str(), out, options.halfWidth, part, options.wholeText, options.dialogs,
                           options.monochrome);
  });
}

Outcome ConvertSheet(const std::string& drawing, const Options& options, StreamedMetafile* stream) {
  const auto make = options.fullSize ? vzDXFFullSizeMetaMake : vzDXFMetaMake;
  return Run(stream, [&](HENHMETAFILE* out) {
    return make(drawing.c_str(), out, options.dialogs, options.halfWidth, options.monochrome);
  });
}

Outcome Turn(const Options& options, StreamedMetafile* stream) {
  return Run(stream, [&](HENHMETAFILE* out) { return vzDXFRotMetaMake(out, options.monochrome); });
}

Outcome CallExports(const std::string& drawing, const Options& options, StreamedMetafile* stream) {
  if (options.view) return ConvertView(drawing, *options.view, options, stream);
  Outcome outcome = ConvertSheet(drawing, options, options.rotate ? nullptr : stream);
  if (!options.rotate) return outcome;
  // Not what was asked for: given back whether it can be turned or not.
  outcome.metafile.reset();
  return !outcome.fault && outcome.code == HEXLUME_OK ? Turn(options, stream) : std::move(outcome);
}

// What can't be written while it is drawn is drawn again in memory. When that is written, it shows what is wrong.
Outcome CallExportsOnceOrTwice(const std::string& drawing, const Options& options, StreamedMetafile* stream) {
  Outcome outcome = CallExports(drawing, options, stream);
  return outcome.isLost ? CallExports(drawing, options, nullptr) : std::move(outcome);
}

MetafileBytes TakeBytes(Outcome& outcome, const StreamedMetafile* stream) {
  const MetafileBytes streamed = stream ? stream->Bytes() : MetafileBytes();
  return streamed.empty() ? BytesOf(std::move(outcome.metafile)) : streamed;
}

Conversion AfterFault(int32_t fault) {
  Conversion conversion = Ended(faultStatus);
  conversion.words = "fault " + std::to_string(fault) + " left the library";
  if (fault == -1) conversion.words += ": a text is too long for its place";
  return conversion;
}

Conversion AfterUnknownCode(int32_t code) {
  return {"unknown", code, "the library returned " + std::to_string(code), {}, {}};
}

// Why a drawing couldn't be converted. The host library gives the reason, for which it reads the drawing again.
Conversion Explained(const DrawingSource& drawing, const Options& options) {
  Conversion conversion = ConvertByHostLibrary(drawing, options, HEXLUME_FORMAT_AS_IS);
  conversion.metafile = {};
  conversion.remarks.clear();
  if (conversion.HasFailed()) return conversion;
  conversion = Ended(partStatus);
  conversion.words = "the file can't be read or is no drawing, or a fault ended it";
  return conversion;
}

// Whether a bound has ended the drawing, which is a fault too.
bool EndedByBound(const Outcome& outcome) {
  constexpr uint32_t ending = 1 << HEXLUME_BOUND_WORK | 1 << HEXLUME_BOUND_METAFILE_SIZE |
                              1 << HEXLUME_BOUND_NESTED_BYTES | 1 << HEXLUME_BOUND_NESTING_DEPTH;
  return (outcome.bounds & ending) != 0;
}

// The exports don't say that memory ran out. A drawing that the host library can draw has no fault of its own.
bool RanOutOfMemory(const DrawingSource& drawing, const Outcome& outcome, const Options& options) {
  if (outcome.code == HEXLUME_OK && !outcome.fault) return !outcome.metafile;
  const bool isFault = outcome.fault ? *outcome.fault == drawingFault : outcome.metafile != nullptr;
  if (!isFault || EndedByBound(outcome) || options.dialogs != 0) return false;
  const int32_t status =
      CallHost(hexlume_convert, drawing, HostOptionsOf(options, HEXLUME_FORMAT_AS_IS)).Status();
  return status == HEXLUME_STATUS_OK || status == HEXLUME_STATUS_NO_MEMORY;
}

Conversion AfterFailure(const DrawingSource& drawing, const Outcome& outcome, const Options& options) {
  if (RanOutOfMemory(drawing, outcome, options)) return Ended(noMemoryStatus);
  if (outcome.fault) return AfterFault(*outcome.fault);
  switch (outcome.code) {
    case HEXLUME_OK: return {};
    case HEXLUME_NOT_OPENED: return Ended(notOpenedStatus);
    case HEXLUME_CANCELLED: return Ended(cancelledStatus);
    case HEXLUME_NOT_A_DRAWING: return outcome.metafile ? Ended(partStatus) : Explained(drawing, options);
    default: return AfterUnknownCode(outcome.code);
  }
}

// The library calls SetMapMode first, so an empty metafile has two records: the header and the end. A long one isn't looked at, as
// its bytes may have to be copied.
bool IsEmpty(const MetafileBytes& bytes) {
  constexpr size_t headerSize = 88, recordCount = 52, longest = 1024;
  return bytes.size() >= headerSize && bytes.size() <= longest &&
         EmfRecord(bytes.data(), bytes.size()).UInt(recordCount) == 2;
}

void AddBounds(uint32_t bounds, Conversion& conversion) {
  for (int32_t bound = 0; const char* const words = hexlume_bound_message(bound, HEXLUME_ENGLISH); ++bound)
    if (bounds >> bound & 1) conversion.remarks.push_back({"bound", words});
}

// What the host library would say of a drawing that the exports have converted.
void AddRemarks(const DrawingSource& drawing, DrawingParts& parts, const Options& options,
                Conversion& conversion) {
  for (const std::string& layer : UnknownHiddenLayers(options.dialogAnswers))
    conversion.remarks.push_back(
        {"no-such-layer", "no layer has the name '" + layer + "' that --hide-layer gives"});
  if (!parts.IsOpen()) return;
  if (parts.Size() > largestDrawing) {
    const Status& tooLarge = StatusOf(tooLargeStatus);
    conversion.remarks.push_back(
        {tooLarge.name, std::string(tooLarge.words) + "; what is beyond isn't read"});
    return;
  }
  const bool hasEntities =
      !IsEmpty(conversion.metafile) ||
      CallHost(hexlume_convert, drawing, HostOptionsOf(options, HEXLUME_FORMAT_AS_IS)).Status() !=
          HEXLUME_STATUS_NO_ENTITIES;
  if (!hasEntities)
    conversion.remarks.push_back({StatusOf(noEntitiesStatus).name, StatusOf(noEntitiesStatus).words});
  if (!HasEndMark(parts))
    conversion.remarks.push_back({"cut-off", "the drawing ends without its end mark: it may be cut off"});
}

Conversion ConvertByExports(const DrawingSource& drawing, const std::string& path, DrawingParts& parts,
                            const Options& options, StreamedMetafile* stream) {
  Outcome outcome = CallExportsOnceOrTwice(path, options, stream);
  Conversion conversion = AfterFailure(drawing, outcome, options);
  // What was drawn before memory ran out is of no use.
  if (outcome.metafile && conversion.exit != StatusOf(noMemoryStatus).exit)
    conversion.metafile = TakeBytes(outcome, stream);
  AddBounds(outcome.bounds, conversion);
  if (!conversion.HasFailed()) AddRemarks(drawing, parts, options, conversion);
  return conversion;
}

// The path for the exports. None if only the host library can convert this drawing.
std::optional<std::string> PathForExports(const DrawingSource& drawing) {
  constexpr size_t longest = 259;  // bytes that vzRotMetaMake can repeat
  if (drawing.bytes) return std::nullopt;
  const std::optional<std::string> path = LibraryPath(drawing.path);
  return path && path->size() <= longest ? path : std::nullopt;
}

SheetInk InkOf(const MetafileBytes& metafile) {
  if (const SystemMetafile* const system = metafile.System()) {
    const std::vector<uint8_t> beginning = system->Beginning();
    if (FindInk(beginning.data(), beginning.size()) == SheetInk::within) return SheetInk::within;
  }
  return FindInk(metafile.data(), metafile.size());
}

bool HasReachedBound(const Conversion& conversion) {
  return std::any_of(conversion.remarks.begin(), conversion.remarks.end(),
                     [](const Remark& remark) { return remark.name == "bound"; });
}

// Whether the picture is blank, but not that of a sheet made from what is drawn: the library leaves out lines beside
// the sheet. A drawing that a bound has ended isn't converted twice.
bool IsBesideSheet(const DrawingSource& drawing, const Options& options, int32_t format,
                   const Conversion& conversion) {
  if (options.view || options.fit || options.dialogs != 0) return false;
  if (conversion.HasFailed() && HasReachedBound(conversion)) return false;
  const SheetInk ink = InkOf(conversion.metafile);
  if (ink != SheetInk::none) return ink == SheetInk::beside;
  Options fitted = options;
  fitted.fit = true;
  return InkOf(BytesOf(CallHost(hexlume_convert, drawing, HostOptionsOf(fitted, format)))) ==
         SheetInk::within;
}

Conversion Choose(const DrawingSource& drawing, DrawingParts& parts, int32_t format, const Options& options,
                  Converter converter, StreamedMetafile* stream) {
  const auto path = PathForExports(drawing);
  if (options.dialogs != 0) {
    // Only the exports have dialogs.
    return path ? ConvertByExports(drawing, *path, parts, options, stream)
                : Ended(notAllowedStatus, " with dialogs");
  }
  const bool isForHost = converter == Converter::host || options.dialogAnswers.IsGiven() || options.fit ||
                         format == HEXLUME_FORMAT_AUTO || !path;
  return isForHost ? ConvertByHostLibrary(drawing, options, format)
                   : ConvertByExports(drawing, *path, parts, options, stream);
}

}  // namespace

Conversion Ended(StatusRow row, const std::string& detail) {
  const Status& status = StatusOf(row);
  if (row == okStatus) return {};
  return {status.name, status.exit, status.words + detail, {}, {}};
}

Conversion Convert(const DrawingSource& drawing, const Options& options, Converter converter,
                   StreamedMetafile* stream) {
  if (!drawing.isReadable) return Ended(notAllowedStatus);
  DrawingParts parts(drawing);
  const bool asIs = options.asIs || options.dialogs != 0;
  const Encoding encoding = asIs ? Encoding::codePage932 : EncodingOf(parts);
  const int32_t format = encoding == Encoding::utf8 ? HEXLUME_FORMAT_AUTO : HEXLUME_FORMAT_AS_IS;
  Conversion conversion = Choose(drawing, parts, format, options, converter, stream);
  const bool hasResult = !conversion.HasFailed() || !conversion.metafile.empty();
  if (encoding == Encoding::notUtf8 && hasResult)
    conversion.remarks.push_back(
        {"not-utf8", "a drawing of this version should be UTF-8, but isn't: it was read as code page 932"});
  if (hasResult && IsBesideSheet(drawing, options, format, conversion))
    conversion.remarks.push_back({"beside-sheet", "nothing of the drawing is on its sheet; try --fit"});
  return conversion;
}

}  // namespace hexlume
