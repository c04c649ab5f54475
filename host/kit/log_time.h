// Points in time as the host's logs write them.
#pragma once

#include <array>
#include <ctime>

#include "support/text.h"

namespace quill::host {

// Universal time to the second, such as "2004-03-31 18:05:09Z".
[[nodiscard]] inline Text LogTime(std::time_t time = std::time(nullptr)) {
  std::array<char, 32> text{};
  std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M:%SZ", std::gmtime(&time));
  return FromUtf8(text.data());
}

}  // namespace quill::host
