// The values that a host in memory hands over.
#pragma once

#include <utility>
#include <vector>

#include "plugin/host_objects.h"
#include "support/number_text.h"
#include "support/runtime_error.h"

namespace quill::host {

// The host's array of texts.
class HostTexts final : public HostArray {
 public:
  explicit HostTexts(std::vector<Text> texts) : texts_(std::move(texts)) {}
  // Fails with kSubscriptOutOfRange beyond the last text.
  [[nodiscard]] Text ElementText(std::int32_t index) const override {
    if (index < 0 || index >= std::ssize(texts_)) {
      throw RuntimeError(ErrorNumber::kSubscriptOutOfRange);
    }
    return texts_[static_cast<std::size_t>(index)];
  }

 private:
  std::vector<Text> texts_;
};

// One right of the operator, as the host's collection holds it.
struct Right {
  // kFails: the item is none that could be compared with a text, such as an array.
  enum class Form : std::uint8_t { kText, kNumber, kFails };
  Text name;
  Form form = Form::kText;
  Text value;
};

class HostRights final : public HostCollection {
 public:
  explicit HostRights(std::vector<Right> rights) : rights_(std::move(rights)) {}

  [[nodiscard]] std::int64_t Count() override { return std::ssize(rights_); }
  [[nodiscard]] std::optional<HostItem> Find(TextView key) override {
    for (const auto& [name, form, value] : rights_) {
      if (!EqualIgnoringCase(name, key)) continue;
      if (form == Right::Form::kFails) throw RuntimeError(ErrorNumber::kTypeMismatch);
      if (form == Right::Form::kText) return HostItem{HostItem::Kind::kText, value};
      return HostItem{HostItem::Kind::kNumber, {}, static_cast<double>(ToInt32(value))};
    }
    return std::nullopt;
  }

 private:
  std::vector<Right> rights_;
};

}  // namespace quill::host
