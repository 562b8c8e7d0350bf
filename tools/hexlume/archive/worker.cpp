#include "tools/hexlume/archive/worker.h"

#include <cstdlib>
#include <new>

#include "tools/hexlume/system/worker_process.h"

namespace hexlume {
namespace {

// Reads the texts of a message in order. What is missing is empty.
class Fields {
 public:
  explicit Fields(const Message& read) : message(read) {}

  std::string Text() { return next < message.size() ? message[next++] : ""; }
  int64_t Number() { return std::strtoll(Text().c_str(), nullptr, 10); }
  std::vector<std::string> Texts() {
    std::vector<std::string> texts(static_cast<size_t>(Number()));
    for (std::string& text : texts) text = Text();
    return texts;
  }

 private:
  const Message& message;
  size_t next = 0;
};

void AddTexts(Message& message, const std::vector<std::string>& texts) {
  message.push_back(std::to_string(texts.size()));
  message.insert(message.end(), texts.begin(), texts.end());
}

const PictureKind* KindOf(const std::string& option) {
  for (const PictureKind& kind : PictureKinds())
    if (option == kind.option) return &kind;
  return nullptr;
}

Job JobOf(const Message& message) {
  Fields fields(message);
  Job job = {fields.Text(), {}, {}, false};
  if (fields.Number() != 0) job.bytes = fields.Text();
  job.hasPage = fields.Number() != 0;
  for (int64_t count = fields.Number(); count > 0; --count) {
    const std::string kind = fields.Text();
    job.outputs.push_back({KindOf(kind), fields.Text()});
  }
  return job;
}

Message MessageOf(const DrawingResult& result) {
  Message message = {result.status, std::to_string(result.exit), result.words};
  AddTexts(message, result.failures);
  AddTexts(message, result.warnings);
  message.push_back(std::to_string(result.drawing.size));
  message.push_back(std::to_string(result.drawing.modified));
  message.push_back(std::to_string(result.outputs.size()));
  for (const WrittenOutput& output : result.outputs) {
    message.push_back(output.file);
    message.push_back(std::to_string(output.size));
  }
  message.push_back(result.report);
  message.push_back(result.standardOutput);
  message.emplace_back(result.page.begin(), result.page.end());
  return message;
}

bool Send(const Message& message) {
  const std::string bytes = Encoded(message);
  return std::fwrite(bytes.data(), 1, bytes.size(), stdout) == bytes.size() && std::fflush(stdout) == 0;
}

}  // namespace

Message MessageOf(const Job& job) {
  Message message = {job.drawing, job.bytes ? "1" : "0"};
  if (job.bytes) message.push_back(*job.bytes);
  message.emplace_back(job.hasPage ? "1" : "0");
  message.push_back(std::to_string(job.outputs.size()));
  for (const PictureOrder& output : job.outputs) {
    message.push_back(output.kind ? output.kind->option : "");
    message.push_back(output.file);
  }
  return message;
}

DrawingResult ResultOf(const Message& message) {
  Fields fields(message);
  DrawingResult result;
  result.status = fields.Text();
  result.exit = static_cast<int>(fields.Number());
  result.words = fields.Text();
  result.failures = fields.Texts();
  result.warnings = fields.Texts();
  result.drawing.size = fields.Number();
  result.drawing.modified = fields.Number();
  for (int64_t count = fields.Number(); count > 0; --count) {
    const std::string file = fields.Text();
    result.outputs.push_back({file, fields.Number()});
  }
  result.report = fields.Text();
  result.standardOutput = fields.Text();
  const std::string page = fields.Text();
  result.page = {page.begin(), page.end()};
  return result;
}

namespace {

int ConvertUntilEnd() {
  UsePlainLineEnds();
  std::FILE* const input = PlainStandardInput();
  const std::optional<Message> arguments = ReadMessage(input);
  if (!arguments) return 0;
  const Options options = ParseOptions(*arguments);
  PrepareWorker(MemoryLimitOf(options));
  while (const std::optional<Message> message = ReadMessage(input)) {
    const Job job = JobOf(*message);
    std::string standardOutput;
    CollectStandardOutput(&standardOutput);
    DrawingResult result = RunDrawing(job, options, Converter::host, false);
    CollectStandardOutput(nullptr);
    result.standardOutput = std::move(standardOutput);
    if (!Send(MessageOf(result))) return 1;
  }
  return 0;
}

}  // namespace

int RunWorker() {
  try {
    return ConvertUntilEnd();
  } catch (const std::bad_alloc&) {
    return StatusOf(noMemoryStatus).exit;
  }
}

}  // namespace hexlume
