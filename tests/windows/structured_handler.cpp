#include "windows/structured_handler.h"

#include <algorithm>

#include "windows/processor.h"

namespace hexlume::test {

namespace {

HostException* receiver;
volatile bool ended;

void Record(const EXCEPTION_RECORD& record) {
  receiver->code = record.ExceptionCode;
  receiver->flags = record.ExceptionFlags;
  receiver->parameterCount = record.NumberParameters;
  std::copy_n(record.ExceptionInformation, record.NumberParameters, receiver->parameters);
  ended = true;
}

}  // namespace

bool EndsInException(void (*run)(void* context), void* context, HostException* exception) {
  receiver = exception;
  ended = false;
  RunUnderHandler(run, context, Record);
  return ended;
}

}  // namespace hexlume::test
