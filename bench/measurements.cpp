// The quickest of each measurement's repetitions.
#include "bench/measurements.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>

namespace quill::bench {

std::string Name(std::initializer_list<std::string> parts) {
  std::string name;
  for (const std::string& part : parts) name += (name.empty() ? "" : "/") + part;
  return name;
}

void Measure(const std::string& name, std::function<void(benchmark::State&)> work) {
  benchmark::RegisterBenchmark(name.c_str(), std::move(work));
}

void Measurements::Add(const std::string& name, double nanoseconds) {
  const auto [at, added] = by_name_.try_emplace(name, nanoseconds);
  at->second = std::min(at->second, nanoseconds);
}

bool Measurements::AddFile(const std::string& path) {
  std::ifstream file(path);
  if (!file) return false;
  std::string name;
  for (double nanoseconds = 0; file >> name >> nanoseconds;) Add(name, nanoseconds);
  return file.eof();
}

std::optional<double> Measurements::Find(const std::string& name) const {
  const auto found = by_name_.find(name);
  if (found == by_name_.end()) return std::nullopt;
  return found->second;
}

bool KeepingReporter::ReportContext(const Context& context) {
  PrintBasicContext(&GetErrorStream(), context);
  return true;
}

void KeepingReporter::ReportRuns(const std::vector<Run>& runs) {
  for (const Run& run : runs) {
    if (run.run_type != Run::RT_Iteration) continue;
    const std::string& name = run.run_name.function_name;
    if (run.error_occurred) {
      std::printf("%-32s FAILED: %s\n", name.c_str(), run.error_message.c_str());
      std::exit(1);
    }
    // In the unit of the run, which is nanoseconds throughout.
    kept_.Add(name, run.GetAdjustedCPUTime());
  }
  // Their averages come by themselves.
  if (runs.empty() || runs.front().run_type != Run::RT_Iteration) return;
  const std::string& name = runs.front().run_name.function_name;
  std::printf("%-32s %14.1f ns\n", name.c_str(), kept_.Find(name).value_or(0));
}

}  // namespace quill::bench
