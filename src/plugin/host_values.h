// Values that the host hands over, as far as the plug-in looks into them.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "support/text.h"

namespace quill {

// An array of values, by reference (LoadInterface's PDAT).
class HostArray {
 public:
  virtual ~HostArray() = default;
  // The text of one element. kSubscriptOutOfRange when there is no such element, kTypeMismatch when
  // the value is no array or the element has no text.
  [[nodiscard]] virtual Text ElementText(std::int32_t index) const = 0;
};

// One item of a collection: a text, a number (truth values count as numbers: false is 0), or
// another value that equals no text, such as an empty one.
struct HostItem {
  enum class Kind : std::uint8_t { kText, kNumber, kOther };
  Kind kind = Kind::kOther;
  Text text;
  double number = 0;
};

// A collection keyed by text.
class HostCollection {
 public:
  virtual ~HostCollection() = default;
  [[nodiscard]] virtual std::int64_t Count() = 0;
  // The item of that key, without regard to letter case; nothing when there is none. kTypeMismatch
  // for an item that cannot be compared with a text.
  [[nodiscard]] virtual std::optional<HostItem> Find(TextView key) = 0;
};

}  // namespace quill
