// The exports of the host library.
#include <cstring>
#include <exception>
#include <memory>

#include "hexlume_host.h"
#include "host/arguments.h"
#include "host/bound_text.h"
#include "host/conversion.h"
#include "host/inspection.h"
#include "host/result.h"
#include "platform/call_lock.h"
#include "platform/metafile_handle.h"

namespace hexlume {

namespace {

struct CallOfThread {
  CallOfThread() {
    if (!EnterCall()) throw BadArgument("the library must not be called from its progress function");
  }
  ~CallOfThread() { LeaveCall(); }
  CallOfThread(const CallOfThread&) = delete;
  CallOfThread& operator=(const CallOfThread&) = delete;
};

using Work = void (*)(const HostInput&, const HostOptions&, hexlume_result&);

void RunWork(Work work, const hexlume_input* input, const hexlume_options* options, hexlume_result& result) {
  try {
    const HostInput takenInput = TakeInput(input);
    const HostOptions takenOptions = TakeOptions(options);
    const CallOfThread call;
    work(takenInput, takenOptions, result);
  } catch (const BadArgument& wrong) {
    result.status = HEXLUME_STATUS_BAD_ARGUMENT;
    result.detail = wrong.what();
  } catch (const std::exception&) {  // memory ran out
    result.status = HEXLUME_STATUS_NO_MEMORY;
    result.metafile = {};
  }
  SettleMessage(result);
}

int32_t GiveResult(Work work, const hexlume_input* input, const hexlume_options* options,
                   hexlume_result** out) {
  if (!out) return HEXLUME_STATUS_BAD_ARGUMENT;
  *out = nullptr;
  try {
    auto result = std::make_unique<hexlume_result>();
    RunWork(work, input, options, *result);
    *out = result.release();
    return (*out)->status;
  } catch (const std::exception&) {
    return HEXLUME_STATUS_NO_MEMORY;
  }
}

template <typename Row>
const Row* RowAt(const std::vector<Row>& rows, int64_t index) {
  return index >= 0 && index < static_cast<int64_t>(rows.size()) ? &rows[static_cast<size_t>(index)]
                                                                 : nullptr;
}

}  // namespace

}  // namespace hexlume

using namespace hexlume;

int32_t hexlume_version(void) {
  return HEXLUME_VERSION_NUMBER;
}

const char* hexlume_status_name(int32_t status) {
  return StatusName(status);
}

const char* hexlume_bound_name(int32_t bound) {
  return BoundName(bound);
}

const char* hexlume_bound_message(int32_t bound, int32_t language) {
  const Sentence* const sentence = BoundSentence(bound);
  if (!sentence) return nullptr;
  return language == HEXLUME_JAPANESE ? sentence->japanese.c_str() : sentence->english.c_str();
}

void hexlume_options_init(hexlume_options* options, uint32_t size) {
  if (!options || size < sizeof options->size) return;
  std::memset(options, 0, size);
  options->size = size;
}

int32_t hexlume_convert(const hexlume_input* input, const hexlume_options* options, hexlume_result** result) {
  return GiveResult(ConvertForHost, input, options, result);
}

int32_t hexlume_inspect(const hexlume_input* input, const hexlume_options* options, hexlume_result** result) {
  return GiveResult(InspectForHost, input, options, result);
}

void hexlume_result_free(hexlume_result* result) {
  delete result;
}

int32_t hexlume_result_status(const hexlume_result* result) {
  return result ? result->status : 0;
}

const char* hexlume_result_message(const hexlume_result* result, int32_t language) {
  if (!result) return nullptr;
  const Sentence& message = result->message;
  return language == HEXLUME_JAPANESE ? message.japanese.c_str() : message.english.c_str();
}

int64_t hexlume_result_line(const hexlume_result* result) {
  return result ? result->line : 0;
}

const uint8_t* hexlume_result_metafile(const hexlume_result* result) {
  return result && !result->metafile.IsEmpty() ? result->metafile.Start() : nullptr;
}

int64_t hexlume_result_metafile_size(const hexlume_result* result) {
  return result ? static_cast<int64_t>(result->metafile.Size()) : 0;
}

void* hexlume_result_handle(const hexlume_result* result) {
  if (!result || result->metafile.IsEmpty()) return nullptr;
  return MetafileHandle(result->metafile.Start(), result->metafile.Size());
}

int64_t hexlume_result_number(const hexlume_result* result, int32_t number) {
  return result && number >= 0 && number <= HEXLUME_NUMBER_MILLISECONDS ? result->numbers[number] : 0;
}

const hexlume_remark* hexlume_result_remark(const hexlume_result* result, int64_t index) {
  return result ? RowAt(result->remarks, index) : nullptr;
}

const hexlume_summary* hexlume_result_summary(const hexlume_result* result) {
  return result && result->isInspection ? &result->inspection.summary : nullptr;
}

const hexlume_layer* hexlume_result_layer(const hexlume_result* result, int64_t index) {
  return result ? RowAt(result->inspection.layers, index) : nullptr;
}

const hexlume_line_type* hexlume_result_line_type(const hexlume_result* result, int64_t index) {
  return result ? RowAt(result->inspection.lineTypes, index) : nullptr;
}

const hexlume_dim_style* hexlume_result_dim_style(const hexlume_result* result, int64_t index) {
  return result ? RowAt(result->inspection.dimStyles, index) : nullptr;
}

const hexlume_block* hexlume_result_block(const hexlume_result* result, int64_t index) {
  return result ? RowAt(result->inspection.blocks, index) : nullptr;
}

const hexlume_entities* hexlume_result_entities(const hexlume_result* result, int64_t index) {
  return result ? RowAt(result->inspection.entities, index) : nullptr;
}

const hexlume_text* hexlume_result_text(const hexlume_result* result, int64_t index) {
  return result ? RowAt(result->inspection.texts, index) : nullptr;
}
