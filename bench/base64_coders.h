// Base64 as people would otherwise get it, behind one shape: bytes in, characters out, and back.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace quill::bench {

struct Base64Coder {
  const char* name;
  // Each writes to `out`, which has room for twice the input and 16 more, and returns how much.
  // None of them checks anything that its library does not check by itself.
  std::size_t (*encode)(std::string_view bytes, char* out);
  std::size_t (*decode)(std::string_view encoded, char* out);
};

// modp_b64, OpenSSL, GLib, Abseil, Boost (Beast's coder), and a copy of the same bytes as the
// floor.
[[nodiscard]] std::span<const Base64Coder> OtherBase64Coders() noexcept;

inline constexpr const char* kFloor = "memcpy";

}  // namespace quill::bench
