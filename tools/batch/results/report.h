// What became of the drawings, as texts for programs and as a page for people.
#pragma once

#include <iosfwd>

#include "tools/batch/plan/plan.h"

namespace hexlume::batch {

// A line for each drawing, or for each that has failed. A name is as its bytes are.
void WriteCsv(const Plan& plan, bool isFailedOnly, std::ostream& out);

// An object in a line for each drawing, or for each that has failed.
void WriteJsonLines(const Plan& plan, bool isFailedOnly, std::ostream& out);

// A page of HTML with the numbers, the failed drawings and some of the others.
void WritePage(const Plan& plan, std::ostream& out);

}  // namespace hexlume::batch
