#include "tools/hexlume/drawing/drawing_run.h"

#include <chrono>
#include <new>

#include "tools/hexlume/drawing/drawing_report.h"
#include "tools/hexlume/picture/picture.h"
#include "tools/hexlume/picture/picture_book.h"

namespace hexlume {
namespace {

void TakeStatus(const Conversion& conversion, const Job& job, DrawingResult& result) {
  result.status = conversion.name;
  result.exit = conversion.exit;
  result.words = conversion.words;
  const std::string start = job.drawing + ": ";
  for (const Remark& remark : conversion.remarks)
    if (!remark.isMinor) result.warnings.push_back(start + "warning: " + remark.name + ": " + remark.words);
  if (conversion.HasFailed()) result.failures.push_back(start + conversion.name + ": " + conversion.words);
}

// Also where the conversion has failed already: the later failure counts.
void TakeOutputFailure(const std::string& words, DrawingResult& result) {
  const Status& status = StatusOf(notWrittenStatus);
  result.status = status.name;
  result.exit = status.exit;
  result.words = words;
  result.failures.push_back(words);
}

int64_t SizeOf(const DrawingSource& source, const FileStamp& stamp) {
  return source.bytes ? static_cast<int64_t>(source.bytes->size()) : stamp.size;
}

DrawingSource SourceOf(const Job& job, const Options& options, const FileStamp& stamp) {
  if (job.bytes) return {job.drawing, job.bytes};
  DrawingSource source = OpenDrawing(job.drawing);
  // The report describes the very bytes that are converted.
  if (options.report && !source.bytes && stamp.size <= largestDrawing) source = ReadDrawing(job.drawing);
  return source;
}

// Whether the job's only result is written as soon as it has its name.
bool TakeStream(const Job& job, StreamedMetafile* stream, DrawingResult& result) {
  if (!stream || stream->Bytes().empty() || !stream->Commit()) return false;
  result.outputs.push_back({job.outputs.front().file, static_cast<int64_t>(stream->Bytes().size())});
  return true;
}

}  // namespace

DrawingResult FailedResult(const Job& job, StatusRow row, const Options& options) {
  DrawingResult result;
  const Conversion conversion = Ended(row);
  TakeStatus(conversion, job, result);
  if (options.report) result.report = DescribeFailure(job.drawing, result.status, result.words);
  return result;
}

DrawingResult RunDrawing(const Job& job, const Options& options, Converter converter, bool hasHeading) {
  const auto start = std::chrono::steady_clock::now();
  DrawingResult result;
  result.drawing = StampOf(job.drawing).value_or(FileStamp());
  DrawingSource source;
  std::unique_ptr<StreamedMetafile> stream;
  Conversion conversion;
  bool hasPage = false;
  try {
    source = SourceOf(job, options, result.drawing);
    stream = StreamOf(job, options);
    conversion = Convert(source, options, converter, stream.get());
    TakeStatus(conversion, job, result);
    if (!conversion.metafile.empty()) {
      conversion.metafile.SetDrawingBytes(SizeOf(source, result.drawing));
      if (!TakeStream(job, stream.get(), result))
        result.outputs = WriteOutputs(conversion.metafile, job, options, hasHeading);
      if (job.hasPage) CheckPage(conversion.metafile);
      hasPage = job.hasPage;
    }
  } catch (const OutputError& error) {
    TakeOutputFailure(error.what(), result);
  } catch (const PictureError& error) {
    TakeOutputFailure(PageFailure(job.drawing, error.what()), result);
  } catch (const std::bad_alloc&) {
    TakeStatus(Ended(noMemoryStatus), job, result);
  }
  if (options.report) {
    const std::chrono::duration<double, std::milli> time = std::chrono::steady_clock::now() - start;
    result.report = DescribeDrawing(source, options, conversion, result, time.count());
  }
  if (hasPage) result.page = std::move(conversion.metafile);
  return result;
}

std::string PageFailure(const std::string& drawing, const std::string& reason) {
  return drawing + ": its page can't be written: " + reason;
}

}  // namespace hexlume
