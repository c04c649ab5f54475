// The hosting options, one row each.
#include "dialog/option_table.h"

#include <array>

namespace quill {
namespace {

using enum ui::ControlKind;
using enum FieldForm;
using ui::Twips;

// The columns, in twips. The narrow ones hold the second check box of a shared row.
constexpr OptionColumn kServerLeft = {u"fmeServer", 120, 1260, 1440};
constexpr OptionColumn kServerRight = {u"fmeServer", 4680, 1500, 6240};
constexpr OptionColumn kServerFarRight = {u"fmeServer", 6960, 1680, 8760};
constexpr OptionColumn kMiscLeft = {u"fmeMisc", 120, 1860, 2040};
constexpr OptionColumn kMiscRight = {u"fmeMisc", 4800, 2220, 7080};

constexpr Twips kWideText = 2985;
constexpr Twips kPasswordText = 1800;
constexpr Twips kWordList = 1500;
constexpr Twips kNumberList = 1035;
constexpr Twips kNumberText = 900;
constexpr Twips kPingIndent = 240;

constexpr std::array<TextView, 2> kSessions = {u"Tiodioksi", u"LAN IP"};
constexpr std::array<TextView, 4> kDelays = {u"No Delay", u"1 Minute", u"2 Minutes", u"3 Minutes"};

// Tooltips are texts of their own. Where one tells another limit, max_length and the list hold.
// The payload and the reply are two formats with fields of their own. That is why lstRespawn and
// lstTime travel as their position one way and as one more the other way, and why lstKills and
// lstScore share a field of the reply.
// A fixed value has two substitutes, which differ for lstMax alone: 16 where a reply has no fixed
// values, 17 where its field is no number.
// clang-format off
constexpr Option kOptions[] = {
    {.key = u"txtMessage", .kind = kTextBox, .label = u"Host Message:",
     .place = {kServerLeft, 0, kWideText}, .tooltip = u"Limit: 88 Characters", .max_length = 85,
     .blank_replacement = u" ", .payload = {0, kBase64OrEmpty}, .reply = {0, kBase64OrEmpty}},
    {.key = u"txtName", .kind = kTextBox, .label = u"Server Name:",
     .place = {kServerLeft, 1, kWideText}, .tooltip = u"Limit: 31 Characters", .max_length = 26,
     .blank_replacement = u"Untitled", .payload = {1, kBase64}, .reply = {1, kBase64OrEmpty}},
    {.key = u"txtCountry", .kind = kTextBox, .label = u"Country Code:",
     .place = {kServerLeft, 2, 600}, .tooltip = u"Limit: 2 Characters", .max_length = 2,
     .alignment = ui::Alignment::kCentre, .blank_replacement = u" ", .payload = {2, kBase64OrEmpty},
     .reply = {2, kBase64OrEmpty}},
    {.key = u"txtPassword", .kind = kTextBox, .label = u"Password:",
     .place = {kServerLeft, 3, kPasswordText}, .tooltip = u"Limit: 16 Characters", .max_length = 16,
     .blank_replacement = u" ", .payload = {3, kBase64OrEmpty}, .reply = {3, kBase64OrEmpty}},
    {.key = u"lstSession", .kind = kListBox, .label = u"Session Type:",
     .place = {kServerLeft, 4, kWordList}, .items = kSessions, .payload = {4, kNumberPlusOne},
     .reply = {4, kNumberPlusOne}, .fixed = {26, 1, u"1"}},
    {.key = u"lstMax", .kind = kListBox, .label = u"Max Players:",
     .place = {kServerLeft, 5, kWordList}, .tooltip = u"Limit: 1 - 500", .numbers = {1, 50},
     .payload = {5, kNumberPlusOne}, .reply = {5, kNumberPlusOne}, .fixed = {27, 16, u"17"}},
    {.key = u"lstDelay", .kind = kListBox, .label = u"Start Delay:",
     .place = {kServerLeft, 6, kWordList}, .tooltip = u"Limit: 0 - 3", .items = kDelays,
     .payload = {6, kNumber}, .reply = {6, kNumber}},
    {.key = u"chkLoop", .kind = kCheckBox, .label = u"Loop Maps:",
     .place = {kServerLeft, 7}, .payload = {7, kNumber}, .reply = {7, kLoopState}},
    
    {.key = u"lstKills", .kind = kListBox, .label = u"Max Kills:",
     .place = {kServerRight, 0, kNumberList}, .note = u"(DM + TDM)", .tooltip = u"Limit: 1 - 500",
     .numbers = {1, 500}, .payload = {8, kNumberPlusOne}, .reply = {8, kNumberPlusOne}},
    {.key = u"lstScore", .kind = kListBox, .label = u"Game Score:",
     .place = {kServerRight, 1, kNumberList}, .note = u"(Flagball)", .tooltip = u"Limit: 1 - 500",
     .numbers = {1, 500}, .payload = {9, kNumberPlusOne}, .reply = {8, kNumberPlusOne}},
    {.key = u"lstZone", .kind = kListBox, .label = u"Zone Timer:",
     .place = {kServerRight, 2, kNumberList}, .note = u"(TKOTH + KOTH)",
     .tooltip = u"Limit: 1 - 60", .numbers = {1, 60}, .payload = {10, kNumberPlusOne},
     .reply = {9, kNumberPlusOne}},
    {.key = u"lstRespawn", .kind = kListBox, .label = u"Respawn Time:",
     .place = {kServerRight, 3, kNumberList}, .tooltip = u"Limit: 0 - 120", .numbers = {0, 120},
     .payload = {11, kNumber}, .reply = {10, kNumberPlusOne}},
    {.key = u"lstTime", .kind = kListBox, .label = u"Time Limit:",
     .place = {kServerRight, 4, kNumberList}, .tooltip = u"Limit: 0 - 100", .numbers = {0, 100},
     .payload = {12, kNumber}, .reply = {11, kNumberPlusOne}},
    {.key = u"chkNova", .kind = kCheckBox, .label = u"Req. Nova Login:",
     .place = {kServerRight, 5}, .payload = {13, kNumber}, .reply = {12, kNumber},
     .fixed = {32, 0, u"0"}},
    {.key = u"chkSkins", .kind = kCheckBox, .label = u"Allow Custom Skins:",
     .place = {kServerFarRight, 5}, .payload = {14, kNumber}, .reply = {13, kNumber},
     .fixed = {31, 0, u"0"}},
    {.key = u"chkWindow", .kind = kCheckBox, .label = u"Run Windowed:",
     .place = {kServerRight, 6}, .initial_state = 1, .payload = {15, kNumber},
     .reply = {14, kNumber}, .fixed = {29, 1, u"1"}},
    {.key = u"chkDedi", .kind = kCheckBox, .label = u"Run Dedicated:",
     .place = {kServerFarRight, 6}, .payload = {16, kNumber}, .reply = {15, kNumber},
     .fixed = {30, 1, u"1"}},
    {.key = u"cboMods", .kind = kComboBox, .label = u"Game Mod:", .place = {kServerRight, 7, 2775},
     .payload = {25, kBase64}, .reply = {16, kBase64List}, .fixed = {28}},
    
    {.key = u"txtBlue", .kind = kTextBox, .label = u"Blue Team Password:",
     .place = {kMiscLeft, 0, kPasswordText}, .tooltip = u"Limit: 31 Characters", .max_length = 16,
     .blank_replacement = u" ", .payload = {17, kBase64OrEmpty}, .reply = {17, kBase64OrEmpty}},
    {.key = u"txtRed", .kind = kTextBox, .label = u"Red Team Password:",
     .place = {kMiscLeft, 1, kPasswordText}, .tooltip = u"Limit: 31 Characters", .max_length = 16,
     .blank_replacement = u" ", .payload = {18, kBase64OrEmpty}, .reply = {18, kBase64OrEmpty}},
    {.key = u"chkFFKills", .kind = kCheckBox, .label = u"Friendly Fire Kills:",
     .place = {kMiscLeft, 2}, .flag = {0x200, 0}},
    {.key = u"chkFFTags", .kind = kCheckBox, .label = u"Friendly Tags:",
     .place = {kMiscLeft, 3}, .initial_state = 1, .flag = {0x400, 0}},
    {.key = u"chkFFWarn", .kind = kCheckBox, .label = u"Friendly Fire Warning:",
     .place = {kMiscLeft, 4}, .flag = {0x8, 0}},
    {.key = u"chkTeam", .kind = kCheckBox, .label = u"Auto Balance:",
     .place = {kMiscLeft, 5}, .flag = {0x4, 0}},
    {.key = u"chkTracers", .kind = kCheckBox, .label = u"Show Tracers:",
     .place = {kMiscLeft, 6}, .flag = {0x1, 0}},
    {.key = u"chkClays", .kind = kCheckBox, .label = u"Show Team Clays:",
     .place = {kMiscLeft, 7}, .flag = {0x8000, 1}},
    
    {.key = u"chkAutoRange", .kind = kCheckBox, .label = u"Allow Auto Range:",
     .place = {kMiscRight, 0}, .flag = {0x10000, 1}},
    {.key = u"chkMinPing", .kind = kCheckBox, .label = u"Enable Min Ping Checking:",
     .place = {kMiscRight, 1}, .payload = {19, kNumber}, .reply = {20, kNumber}},
    {.key = u"txtMinPing", .kind = kTextBox, .label = u" - Min. Ping",
     .place = {kMiscRight, 2, kNumberText, kPingIndent}, .tooltip = u"Limit: 31 Characters",
     .max_length = 4, .alignment = ui::Alignment::kCentre, .initial_text = u"0",
     .blank_replacement = u" ", .payload = {20, kPlainText}, .reply = {21, kPlainText}},
    {.key = u"chkMaxPing", .kind = kCheckBox, .label = u"Enable Max Ping Checking:",
     .place = {kMiscRight, 3}, .payload = {21, kNumber}, .reply = {22, kNumber}},
    {.key = u"txtMaxPing", .kind = kTextBox, .label = u" - Max. Ping",
     .place = {kMiscRight, 4, kNumberText, kPingIndent}, .tooltip = u"Limit: 31 Characters",
     .max_length = 4, .alignment = ui::Alignment::kCentre, .initial_text = u"1500",
     .blank_replacement = u" ", .payload = {22, kPlainText}, .reply = {23, kPlainText}},
    {.key = u"txtPort", .kind = kTextBox, .label = u"Game Port:",
     .place = {kMiscRight, 5, kNumberText}, .tooltip = u"Limit: 31 Characters", .max_length = 5,
     .alignment = ui::Alignment::kCentre, .initial_text = u"17479", .payload = {24, kPlainText},
     .reply = {24, kPlainText}},
};
// clang-format on

}  // namespace

std::span<const Option> Options() noexcept {
  return kOptions;
}

}  // namespace quill
