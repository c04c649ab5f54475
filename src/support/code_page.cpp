#include "support/code_page.h"

#include <algorithm>
#include <cassert>

#include "support/runtime_error.h"

namespace quill {

std::array<char16_t, 256> CodePage::Windows1252Units() noexcept {
  constexpr char16_t kFrom80To9F[] = {
      0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,  //
      0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,  //
      0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  //
      0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
  };
  std::array<char16_t, 256> units;
  for (std::size_t byte = 0; byte < units.size(); ++byte) {
    units[byte] = static_cast<char16_t>(byte);
  }
  std::copy(std::begin(kFrom80To9F), std::end(kFrom80To9F), units.begin() + 0x80);
  return units;
}

CodePage::CodePage(const std::array<char16_t, 256>& units) : units_(units) {
  Row unknown;
  unknown.fill('?');
  rows_.push_back(unknown);
  for (std::size_t byte = 0; byte < units.size(); ++byte) {
    const char16_t unit = units[byte];
    if (byte < 0x80 && unit != byte) {
      throw RuntimeError(ErrorNumber::kInvalidProcedureCall,
                         u"The first half of a code page must be ASCII");
    }
    std::uint8_t& row = row_of_[unit >> 8];
    if (row == 0) {
      row = static_cast<std::uint8_t>(rows_.size());
      rows_.push_back(unknown);
    }
    std::uint8_t& entry = rows_[row][unit & 0xFF];
    const bool taken = byte >= 0x80 && (unit < 0x80 || entry != '?');
    if (!taken) entry = static_cast<std::uint8_t>(byte);
  }
}

void CodePage::ToBytes(TextView text, std::span<std::uint8_t> bytes) const noexcept {
  assert(bytes.size() >= text.size());
  // A byte that is written could be part of these for all the compiler knows, hence the copies.
  const std::uint8_t* const row_of = row_of_.data();
  const Row* const rows = rows_.data();
  std::uint8_t* out = bytes.data();
  for (char16_t unit : text) *out++ = rows[row_of[unit >> 8]][unit & 0xFF];
}

void CodePage::AppendText(std::span<const std::uint8_t> bytes, Text& target) const {
  const std::size_t before = target.size();
  target.resize(before + bytes.size());
  std::transform(bytes.begin(), bytes.end(), target.begin() + static_cast<std::ptrdiff_t>(before),
                 [this](std::uint8_t byte) { return ToUnit(byte); });
}

void CodePage::AppendBytes(TextView text, std::vector<std::uint8_t>& target) const {
  const std::size_t before = target.size();
  target.resize(before + text.size());
  ToBytes(text, std::span(target).subspan(before));
}

}  // namespace quill
