// The arrays and collections that the host hands over, behind their automation values.
#pragma once

#include <memory>

#include "com/automation.h"
#include "plugin/host_objects.h"

namespace quill::com {

// An array whose elements have texts, or a script's array object whose elements are members named
// by their index. Refers to `value`, which must outlive it.
class ComHostArray final : public HostArray {
 public:
  explicit ComHostArray(const VARIANT& value) noexcept : value_(value) {}
  [[nodiscard]] Text ElementText(std::int32_t index) const override;

 private:
  const VARIANT& value_;
};

// A collection of any make, with Count and a keyed Item or default member. Null for Nothing.
[[nodiscard]] std::shared_ptr<HostCollection> CollectionOf(IDispatch* object);

}  // namespace quill::com
