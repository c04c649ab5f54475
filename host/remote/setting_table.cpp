// The reply's settings and their reading.
#include "host/remote/setting_table.h"

#include <array>

#include "host/remote/wire.h"
#include "support/runtime_error.h"

namespace quill::host {
namespace {

using enum SettingForm;

// A switch with a third state, which counts as on.
constexpr std::array<TextView, 2> kLoopStates = {u"no", u"yes"};

constexpr Setting kCurrentSettings[] = {
    {u"Host Message", 0, kText, u""},
    {u"Server Name", 1, kText, u""},
    {u"Country Code", 2, kText, u""},
    {u"Password", 3, kText, u""},
    {u"Session Type", 4, kNumber, u"1", 1, 2, kSessionTypes},
    {u"Max Players", 5, kNumber, u"16", 1, 50},
    {u"Start Delay", 6, kNumber, u"0", 0, 3},
    {u"Loop Maps", 7, kNumber, u"1", 0, 2, kLoopStates},
    {u"Kill and Score Limit", 8, kNumber, u"25", 1, 500},
    {u"Zone Timer", 9, kNumber, u"10", 1, 60},
    {u"Respawn Time", 10, kNumber, u"20", 0, 121},
    {u"Time Limit", 11, kNumber, u"20", 0, 101},
    {u"Nova Login", 12, kSwitch, u"0"},
    {u"Custom Skins", 13, kSwitch, u"0"},
    {u"Windowed", 14, kSwitch, u"1"},
    {u"Dedicated", 15, kSwitch, u"1"},
    {u"Blue Password", 17, kText, u""},
    {u"Red Password", 18, kText, u""},
    {u"Min Ping Check", 20, kSwitch, u"0"},
    {u"Min Ping", 21, kPlain, u"0"},
    {u"Max Ping Check", 22, kSwitch, u"0"},
    {u"Max Ping", 23, kPlain, u"1500"},
    {u"Game Port", 24, kPlain, u"17479"},
};

constexpr Setting kFixedSettings[] = {
    {u"Session Type", 26, kNumber, u"1", 1, 2, kSessionTypes},
    {u"Max Players", 27, kNumber, u"16", 1, 50},
    {u"Mod", 28, kPlain, u"None"},
    {u"Windowed", 29, kSwitch, u"1"},
    {u"Dedicated", 30, kSwitch, u"1"},
    {u"Custom Skins", 31, kSwitch, u"0"},
    {u"Nova Login", 32, kSwitch, u"0"},
};

[[noreturn]] void Fail(const Setting& setting, TextView wanted, TextView written) {
  throw RuntimeError(ErrorNumber::kInvalidProcedureCall,
                     Concat({setting.name, u" must be ", wanted, u", not \"", written, u"\""}));
}

Text NumberValue(const Setting& setting, TextView written) {
  for (std::size_t at = 0; at < setting.names.size(); ++at) {
    if (EqualIgnoringCase(setting.names[at], written)) {
      return Decimal(setting.low + static_cast<std::int32_t>(at));
    }
  }
  std::int32_t number = 0;
  if (!ParseWholeNumber(written, number) || number < setting.low || number > setting.high) {
    Text wanted = Concat({u"a number from ", Decimal(setting.low), u" to ", Decimal(setting.high)});
    for (const TextView name : setting.names) wanted += Concat({u" or \"", name, u"\""});
    Fail(setting, wanted, written);
  }
  return Text(written);
}

}  // namespace

std::span<const Setting> CurrentSettings() noexcept {
  return kCurrentSettings;
}

std::span<const Setting> FixedSettings() noexcept {
  return kFixedSettings;
}

Text SettingValue(const Setting& setting, TextView written) {
  switch (setting.form) {
    case kText:
      return Text(written);
    case kPlain:
      if (written.find(kFieldSeparator) != TextView::npos) {
        Fail(setting, u"a text without \"_\"", written);
      }
      return Text(written);
    case kNumber:
      return NumberValue(setting, written);
    case kSwitch:
      if (written == u"1" || EqualIgnoringCase(written, u"yes")) return u"1";
      if (written == u"0" || EqualIgnoringCase(written, u"no")) return u"0";
      Fail(setting, u"yes or no", written);
  }
  throw RuntimeError(ErrorNumber::kInternalError);
}

}  // namespace quill::host
