// Which converter draws which entity: each dispatcher has such a table of its own.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>

#include "driver/conv_state.h"

namespace hexlume {

// Run is the record that all converters of the table are called with: EntityRun or BlockRun.
template <typename Run>
struct ConverterRow {
  const char* keyword;
  int32_t (*draw)(const Run& run);
};

// The row of the entity that the group at hand names, or null. The rows stand in the order of the tests.
template <typename Run, size_t count>
const ConverterRow<Run>* FindConverter(const ConverterRow<Run> (&rows)[count]) {
  if (state.groupCode != 0) return nullptr;
  const auto found = std::find_if(std::begin(rows), std::end(rows), [](const ConverterRow<Run>& row) {
    return std::strcmp(state.groupValue, row.keyword) == 0;
  });
  return found == std::end(rows) ? nullptr : found;
}

}  // namespace hexlume
