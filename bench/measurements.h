// What was measured, by name, and how a measurement is named and registered.
#pragma once

#include <benchmark/benchmark.h>

#include <functional>
#include <initializer_list>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace quill::bench {

// The last part of the name of what is compared with others.
inline constexpr const char* kOurs = "ours";

// "PART/PART/PART"
[[nodiscard]] std::string Name(std::initializer_list<std::string> parts);

// Has `work` measured under that name.
void Measure(const std::string& name, std::function<void(benchmark::State&)> work);

class Measurements {
 public:
  // Keeps the quickest: whatever else runs on the machine can only add to it.
  void Add(const std::string& name, double nanoseconds);
  // Takes "NAME NANOSECONDS" lines from a file. Returns false when it cannot be read.
  bool AddFile(const std::string& path);

  [[nodiscard]] std::optional<double> Find(const std::string& name) const;

 private:
  std::map<std::string, double> by_name_;
};

// Keeps all measurements of a run, and prints the quickest of each.
class KeepingReporter final : public benchmark::BenchmarkReporter {
 public:
  explicit KeepingReporter(Measurements& kept) : kept_(kept) {}
  bool ReportContext(const Context& context) override;
  void ReportRuns(const std::vector<Run>& runs) override;

 private:
  Measurements& kept_;
};

}  // namespace quill::bench
