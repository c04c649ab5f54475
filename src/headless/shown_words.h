// The words for what a control shows, the same for each layer that reads it.
#pragma once

#include "support/text.h"

namespace quill::headless {

[[nodiscard]] constexpr TextView TruthWord(bool value) noexcept {
  return value ? u"true" : u"false";
}
[[nodiscard]] constexpr TextView PointerWord(bool is_busy) noexcept {
  return is_busy ? u"busy" : u"default";
}

}  // namespace quill::headless
