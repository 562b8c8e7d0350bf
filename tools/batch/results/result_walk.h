// All drawings of a plan in order, each once, with what became of it.
#pragma once

#include <functional>
#include <nlohmann/json.hpp>

#include "tools/batch/plan/plan.h"

namespace hexlume::batch {

// What a drawing has that has no result yet.
constexpr const char* leftStatus = "left";

struct DrawingLine {
  const PlannedDrawing& drawing;
  const nlohmann::ordered_json& result;  // always with number, path, status, message and outputs
};

void WalkResults(const Plan& plan, const std::function<void(const DrawingLine&)>& take);

}  // namespace hexlume::batch
