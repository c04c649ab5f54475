// Points in time as the host's logs write them.
#pragma once

#include <chrono>
#include <functional>

#include "support/text.h"

namespace quill::host {

// Tells the time of day; tests use a fixed one.
using TimeSource = std::function<std::chrono::system_clock::time_point()>;

[[nodiscard]] TimeSource SystemTime();

// Universal time to the second, such as "2004-03-31 18:05:09Z".
[[nodiscard]] Text LogTime(std::chrono::system_clock::time_point time);

}  // namespace quill::host
