// A single-byte code page: how texts become bytes in Base64 fields and how the bytes of map-list
// files become text.
#pragma once

#include <array>
#include <cstdint>

#include "support/runtime_error.h"

namespace quill {

class CodePage {
 public:
  // `units` holds the 16-bit unit of each byte value. The first 128 must be ASCII, or this fails
  // with kInvalidProcedureCall. Where bytes share a unit, the lowest one stands for it.
  explicit constexpr CodePage(const std::array<char16_t, 256>& units) : units_(units) {
    for (std::size_t byte = 0; byte < 0x80; ++byte) {
      if (units[byte] == byte) continue;
      throw RuntimeError(ErrorNumber::kInvalidProcedureCall,
                         u"The first half of a code page must be ASCII");
    }
  }

  // Windows-1252 with the five bytes that it leaves undefined mapped to the C1 controls of the same
  // value (as Windows does), so that every byte survives both ways.
  [[nodiscard]] static const CodePage& Windows1252() noexcept;

  [[nodiscard]] char16_t ToUnit(std::uint8_t byte) const noexcept { return units_[byte]; }
  // The byte of `unit`; '?' for a unit that the page does not hold.
  [[nodiscard]] std::uint8_t ToByte(char16_t unit) const noexcept {
    return unit < 0x80 ? static_cast<std::uint8_t>(unit) : ToUpperByte(unit);
  }

 private:
  // The byte of a unit beyond ASCII.
  [[nodiscard]] std::uint8_t ToUpperByte(char16_t unit) const noexcept;

  std::array<char16_t, 256> units_;
};

}  // namespace quill
