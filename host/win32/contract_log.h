// What the reference host notices of the contract between it and the plug-in: each breach with the
// side that committed it.
#pragma once

#include <string>
#include <vector>

namespace quill::host {

enum class Side { kPlugin, kHost };

struct Breach {
  Side side;
  std::string what;  // UTF-8, one line
};

class ContractLog {
 public:
  void Note(Side side, std::string what) { breaches_.push_back({side, std::move(what)}); }
  [[nodiscard]] const std::vector<Breach>& breaches() const noexcept { return breaches_; }

 private:
  std::vector<Breach> breaches_;
};

}  // namespace quill::host
