// The arrays and collections that the host hands over, behind their automation values.
#pragma once

#include <memory>

#include "com/late_bound.h"
#include "plugin/host_values.h"

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

// A collection of any make, with Count and a keyed Item or default member. Whether it holds a key
// is asked before its item is, because some add the key that they are asked for: of the list in
// Keys, or of ContainsKey, Exists or Contains. Without these a key is missing when the look-up
// fails, or when it answers with nothing as it does for keys that nobody has.
class ComHostCollection final : public HostCollection {
 public:
  explicit ComHostCollection(IDispatch* collection) noexcept : collection_(collection) {}
  [[nodiscard]] std::int64_t Count() override;
  [[nodiscard]] std::optional<HostItem> Find(TextView key) override;

 private:
  // The collection's keys as it spells them; nothing when it does not list them.
  [[nodiscard]] std::optional<std::vector<Text>> Keys();
  // Nothing when the collection cannot tell.
  [[nodiscard]] std::optional<bool> Holds(TextView key);
  // True when an answer of nothing for that key means an item.
  [[nodiscard]] bool NothingIsAnItem(TextView key);
  // Nothing when the look-up fails.
  [[nodiscard]] std::optional<Variant> Item(TextView key);

  LateBound collection_;
};

// Null for Nothing and for an empty or null value; fails with kTypeMismatch for a value that is no
// object.
[[nodiscard]] std::shared_ptr<HostCollection> CollectionOf(IDispatch* object);

}  // namespace quill::com
