// What the host hands over, as far as the plug-in looks into it: values, and its two service
// objects.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "support/file_kit.h"
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

inline constexpr TextView kMemoryKitProgId = u"rcMemKit.clsMemKit";

// Created and held, never called.
class MemoryKit {
 public:
  virtual ~MemoryKit() = default;
};

// Creates the service objects by their programmatic names.
class HostServices {
 public:
  virtual ~HostServices() = default;
  // Both fail with kCannotCreateObject when the host does not offer the object.
  [[nodiscard]] virtual std::unique_ptr<FileKit> CreateFileKit() = 0;
  [[nodiscard]] virtual std::unique_ptr<MemoryKit> CreateMemoryKit() = 0;
};

}  // namespace quill
