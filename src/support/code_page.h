// A single-byte code page as a pair of tables: how texts become bytes in Base64 fields and how the
// bytes of map-list files become text.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "support/text.h"

namespace quill {

class CodePage {
 public:
  // `units` holds the 16-bit unit of each byte value. Units of the first 128 must be ASCII.
  explicit CodePage(const std::array<char16_t, 256>& units);

  // Windows-1252 with the five bytes that it leaves undefined mapped to the C1 controls of the same
  // value (as Windows does), so that every byte survives both ways.
  [[nodiscard]] static const CodePage& Windows1252();

  [[nodiscard]] char16_t ToUnit(std::uint8_t byte) const noexcept { return units_[byte]; }
  // The byte of `unit`; '?' for a unit that the page does not hold.
  [[nodiscard]] std::uint8_t ToByte(char16_t unit) const noexcept;

  void AppendText(std::span<const std::uint8_t> bytes, Text& target) const;
  void AppendBytes(TextView text, std::vector<std::uint8_t>& target) const;

 private:
  struct Reverse {
    char16_t unit;
    std::uint8_t byte;
  };
  std::array<char16_t, 256> units_;
  std::vector<Reverse> beyond_ascii_;  // sorted by unit
};

}  // namespace quill
