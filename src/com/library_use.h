// What keeps the library that this code is linked into loaded: its objects and locks, counted.
#pragma once

#include <atomic>

namespace quill::com {

class LibraryUse {
 public:
  LibraryUse() noexcept { Begin(); }
  ~LibraryUse() { End(); }
  LibraryUse(const LibraryUse&) = delete;
  LibraryUse& operator=(const LibraryUse&) = delete;

  static void Begin() noexcept { ++count_; }
  static void End() noexcept { --count_; }
  [[nodiscard]] static bool Any() noexcept { return count_ != 0; }

 private:
  inline static std::atomic<long> count_ = 0;
};

}  // namespace quill::com
