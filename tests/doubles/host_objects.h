// The values that a host hands over, in memory.
#pragma once

#include <map>
#include <utility>
#include <vector>

#include "plugin/host_values.h"
#include "support/runtime_error.h"

namespace quill {

[[nodiscard]] inline HostItem TextItem(Text text) {
  return {.kind = HostItem::Kind::kText, .text = std::move(text)};
}
[[nodiscard]] inline HostItem NumberItem(double number) {
  return {.kind = HostItem::Kind::kNumber, .text = {}, .number = number};
}

class KeyedItems final : public HostCollection {
 public:
  explicit KeyedItems(std::vector<std::pair<Text, HostItem>> items) : items_(std::move(items)) {}

  // Look-ups of this key fail as those of an object do that is no collection.
  Text failing_key;
  bool fails_to_count = false;

  [[nodiscard]] std::int64_t Count() override {
    if (fails_to_count) throw RuntimeError(ErrorNumber::kMemberNotFound);
    return static_cast<std::int64_t>(items_.size());
  }
  [[nodiscard]] std::optional<HostItem> Find(TextView key) override {
    if (key == failing_key) throw RuntimeError(ErrorNumber::kMemberNotFound);
    for (const auto& [name, item] : items_) {
      if (EqualIgnoringCase(name, key)) return item;
    }
    return std::nullopt;
  }

 private:
  std::vector<std::pair<Text, HostItem>> items_;
};

}  // namespace quill
