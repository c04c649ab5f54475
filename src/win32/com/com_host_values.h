// The arrays and collections that the host hands over, behind their automation values.
#pragma once

#include <memory>

#include "plugin/host_values.h"
#include "win32/com/late_bound.h"

namespace quill::com {

// An array of any element type, or a script's array object whose elements are members named by
// their index. Refers to `value`, which must outlive it.
class ComHostArray final : public HostArray {
 public:
  explicit ComHostArray(const VARIANT& value) noexcept : value_(value) {}
  [[nodiscard]] Text ElementText(std::int32_t index) const override;

 private:
  const VARIANT& value_;
};

// A collection of any make: one that lists its keys (a dictionary: members Keys and Item), or one
// with a keyed Item or default member that fails when the key is missing. Looking a key up never
// adds it.
class ComHostCollection final : public HostCollection {
 public:
  explicit ComHostCollection(IDispatch* collection) noexcept : collection_(collection) {}
  [[nodiscard]] std::int64_t Count() override;
  [[nodiscard]] std::optional<HostItem> Find(TextView key) override;

 private:
  [[nodiscard]] std::optional<HostItem> FindListed(SAFEARRAY* keys, TextView key);
  [[nodiscard]] Variant Item(TextView key);

  LateBound collection_;
};

// Null for Nothing and for an empty or null value; fails with kTypeMismatch for a value that is no
// object.
[[nodiscard]] std::shared_ptr<HostCollection> CollectionOf(IDispatch* object);

}  // namespace quill::com
