// Tables that say which converter draws which entity. Each dispatcher has its own.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>

#include "driver/conv_state.h"

namespace hexlume {

// Run is the argument of all converters of a table: EntityRun or BlockRun.
template <typename Run>
struct ConverterRow {
  const char* keyword;
  int32_t (*draw)(const Run& run);
};

// Returns the row for the entity named by the current group, or null. The rows are tested in order.
template <typename Run, size_t count>
const ConverterRow<Run>* FindConverter(const ConverterRow<Run> (&rows)[count]) {
  if (state.groupCode != 0) return nullptr;
  const auto found = std::find_if(std::begin(rows), std::end(rows), [](const ConverterRow<Run>& row) {
    // Most rows differ in the first letter.
    return *state.groupValue == *row.keyword && std::strcmp(state.groupValue, row.keyword) == 0;
  });
  return found == std::end(rows) ? nullptr : found;
}

}  // namespace hexlume
