// What the reference host notices of the contract between it and the plug-in: each breach with the
// side that committed it.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace quill::host {

enum class Side { kPlugin, kHost };

struct Breach {
  Side side;
  std::string what;  // UTF-8, one line
};

// "contract: the plug-in broke it: leaves its dialog behind"
[[nodiscard]] inline std::string BreachLine(const Breach& breach) {
  return "contract: the " + std::string(breach.side == Side::kPlugin ? "plug-in" : "host") +
         " broke it: " + breach.what;
}

class ContractLog {
 public:
  void Note(Side side, std::string what) {
    breaches_.push_back({side, std::move(what)});
    if (on_breach) on_breach(breaches_.back());
  }
  [[nodiscard]] const std::vector<Breach>& breaches() const noexcept { return breaches_; }

  std::function<void(const Breach& breach)> on_breach;  // told as it is noted

 private:
  std::vector<Breach> breaches_;
};

}  // namespace quill::host
