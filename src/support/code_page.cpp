// Windows-1252, the page that does not depend on the system, and the way back from a unit to its
// byte on any page.
#include "support/code_page.h"

#include <algorithm>
#include <numeric>

namespace quill {
namespace {

constexpr std::array<char16_t, 256> Windows1252Units() noexcept {
  // All other bytes of the page have the units of Latin-1, which are the bytes' own numbers.
  constexpr char16_t kFrom80To9F[] = {
      0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,  //
      0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,  //
      0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  //
      0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
  };
  std::array<char16_t, 256> units;
  std::iota(units.begin(), units.end(), u'\0');
  std::ranges::copy(kFrom80To9F, units.begin() + 0x80);
  return units;
}

}  // namespace

const CodePage& CodePage::Windows1252() noexcept {
  // Made by the compiler: nothing of the library is made on first use, which would take a guard.
  static constexpr CodePage kPage(Windows1252Units());
  return kPage;
}

// A search, because few of the characters that are sent are not ASCII.
std::uint8_t CodePage::ToUpperByte(char16_t unit) const noexcept {
  const auto place = std::find(units_.begin() + 0x80, units_.end(), unit) - units_.begin();
  return place == std::ssize(units_) ? '?' : static_cast<std::uint8_t>(place);
}

}  // namespace quill
