#pragma once

#include <string>
#include <vector>

#include "bench/speed/runner.h"

namespace hexlume::bench {

// The rows beside a goal: the library against a program that does the least that must be done.
std::vector<std::string> GoalRows();
void MeasureGoals(Runner& runner, const std::vector<std::string>& rows);

// Writes the drawings of these rows into the folder of the settings.
void WriteDrawings(const Settings& settings);

// The rows of growth: the time of an item in a drawing and in one with many times as many.
std::vector<std::string> GrowthRows();
void MeasureGrowth(Runner& runner, const std::vector<std::string>& rows);

}  // namespace hexlume::bench
