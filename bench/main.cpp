// Runs all benchmarks, interleaved and repeated, and sums them up.
//
//   bench_quill [--also FILE] [Google Benchmark's own options]
//
// FILE holds further measurements, taken elsewhere, as "NAME NANOSECONDS" lines.
#include <malloc.h>

#include <cstdio>
#include <cstring>
#include <vector>

#include "bench/bars.h"
#include "bench/base64_bench.h"
#include "bench/dialog_bench.h"
#include "bench/measurements.h"
#include "bench/reply_bench.h"
#include "bench/settings_bench.h"

int main(int argc, char** argv) {
  using namespace quill::bench;
  // Memory stays with the process. Otherwise whoever works on large blocks measures how the system
  // hands out fresh pages.
  mallopt(M_MMAP_THRESHOLD, 1 << 30);
  mallopt(M_TRIM_THRESHOLD, 1 << 30);
  Measurements measured;
  // Options of the command line come last, so that they win.
  char repetitions[] = "--benchmark_repetitions=9";
  char interleaving[] = "--benchmark_enable_random_interleaving=true";
  char time[] = "--benchmark_min_time=0.03";
  std::vector<char*> arguments = {argv[0], repetitions, interleaving, time};
  for (int i = 1; i < argc; ++i) {
    if (std::strcmp(argv[i], "--also") == 0 && i + 1 < argc) {
      const char* const file = argv[++i];
      if (!measured.AddFile(file)) {
        std::fprintf(stderr, "bench: cannot read the measurements in %s\n", file);
        return 2;
      }
    } else {
      arguments.push_back(argv[i]);
    }
  }

  RegisterBase64();
  RegisterReplies();
  RegisterDialog();
  RegisterSettings();
  int count = static_cast<int>(arguments.size());
  arguments.push_back(nullptr);
  benchmark::Initialize(&count, arguments.data());
  if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) return 2;
  KeepingReporter reporter(measured);
  benchmark::RunSpecifiedBenchmarks(&reporter);

  PrintRatios(measured);
  return PrintBars(measured) ? 0 : 1;
}
