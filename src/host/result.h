// What a call gives its host.
#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <vector>

#include "hexlume_host.h"
#include "host/metafile_bytes.h"
#include "host/status_text.h"

namespace hexlume {

// Texts that the structs of a result point to: they never move.
class TextStore {
 public:
  const char* Keep(std::string text) {
    texts.push_back(std::move(text));
    return texts.back().c_str();
  }

 private:
  std::deque<std::string> texts;
};

struct Inspection {
  hexlume_summary summary = {};
  std::vector<hexlume_layer> layers;
  std::vector<hexlume_line_type> lineTypes;
  std::vector<hexlume_dim_style> dimStyles;
  std::vector<hexlume_block> blocks;
  std::vector<hexlume_entities> entities;
  std::vector<hexlume_text> texts;
};

}  // namespace hexlume

struct hexlume_result {
  int32_t status = HEXLUME_STATUS_OK;
  int64_t line = 0;
  std::string detail;  // of the status: a path, an argument, a limit
  hexlume::Sentence message;
  hexlume::MetafileBytes metafile;
  int64_t numbers[HEXLUME_NUMBER_MILLISECONDS + 1] = {};
  std::vector<hexlume_remark> remarks;
  bool isInspection = false;
  hexlume::Inspection inspection;
  hexlume::TextStore store;
};

namespace hexlume {

// Ends the result of a call: its sentences. The status, the line and the detail are set.
void SettleMessage(hexlume_result& result);

void AddRemark(hexlume_result& result, int32_t code, int64_t line, int64_t count, const std::string& detail);
void AddBoundRemark(hexlume_result& result, int32_t bound, int64_t line);

}  // namespace hexlume
