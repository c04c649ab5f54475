// The settings that the remote machine tells in its reply, as one table: how a person writes them
// in a scenario and which field of the reply carries them.
#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "support/text.h"

namespace quill::host {

enum class SettingForm : std::uint8_t {
  kText,    // anything; Base64 in the reply
  kPlain,   // anything without "_"; as it stands in the reply
  kNumber,  // a whole number from `low` to `high`; names may stand for the numbers from `low` on
  kSwitch,  // yes or no, also 1 or 0
};

struct Setting {
  TextView name;
  int field = 0;
  SettingForm form = SettingForm::kText;
  TextView initial;  // as the reply carries it (texts: before Base64)
  std::int32_t low = 0;
  std::int32_t high = 0;
  std::span<const TextView> names = {};
};

// 1, 2
inline constexpr std::array<TextView, 2> kSessionTypes = {u"Tiodioksi", u"LAN IP"};

inline constexpr int kModsField = 16;
inline constexpr int kMapsField = 25;
inline constexpr int kFirstFixedField = 26;
inline constexpr int kFieldCount = 26;
inline constexpr int kFieldCountWithFixed = 33;

// Fields 0 to 24, without the one for the mods and the unused one.
[[nodiscard]] std::span<const Setting> CurrentSettings() noexcept;
// Fields 26 to 32.
[[nodiscard]] std::span<const Setting> FixedSettings() noexcept;

// The value of `setting` that a person wrote as `written`, as the reply carries it (texts: before
// Base64). Fails with kInvalidProcedureCall and a description of what would be right.
[[nodiscard]] Text SettingValue(const Setting& setting, TextView written);

}  // namespace quill::host
