// A single-byte code page as a pair of tables: how texts become bytes in Base64 fields and how the
// bytes of map-list files become text.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "support/text.h"

namespace quill {

class CodePage {
 public:
  // `units` holds the 16-bit unit of each byte value. The first 128 must be ASCII, or this fails
  // with kInvalidProcedureCall. Where bytes share a unit, the lowest one stands for it.
  explicit CodePage(const std::array<char16_t, 256>& units);

  // Windows-1252 with the five bytes that it leaves undefined mapped to the C1 controls of the same
  // value (as Windows does), so that every byte survives both ways.
  [[nodiscard]] static std::array<char16_t, 256> Windows1252Units() noexcept;
  // The page of these, made on first use.
  [[nodiscard]] static const CodePage& Windows1252() {
    static const CodePage page(Windows1252Units());
    return page;
  }

  [[nodiscard]] char16_t ToUnit(std::uint8_t byte) const noexcept { return units_[byte]; }
  // The byte of `unit`; '?' for a unit that the page does not hold.
  [[nodiscard]] std::uint8_t ToByte(char16_t unit) const noexcept {
    return rows_[row_of_[unit >> 8]][unit & 0xFF];
  }

  // The bytes of `text` into the front of `bytes`, which is at least as long.
  void ToBytes(TextView text, std::span<std::uint8_t> bytes) const noexcept;

  void AppendText(std::span<const std::uint8_t> bytes, Text& target) const;
  void AppendBytes(TextView text, std::vector<std::uint8_t>& target) const;

 private:
  using Row = std::array<std::uint8_t, 256>;  // by the low half of a unit

  std::array<char16_t, 256> units_;
  std::array<std::uint8_t, 256> row_of_{};  // by the high half of a unit; row 0 is all '?'
  std::vector<Row> rows_;
};

}  // namespace quill
