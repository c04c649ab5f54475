// What has to be reached, and whether it is.
#pragma once

#include "bench/measurements.h"

namespace quill::bench {

// Prints ours beside the others, as ratios (ours divided by theirs), and what our own work takes.
void PrintRatios(const Measurements& measured);

// Prints each bar with what was measured and whether it is met. Returns whether all that could be
// judged are; a bar whose measurements were left out of the run is not judged.
bool PrintBars(const Measurements& measured);

}  // namespace quill::bench
