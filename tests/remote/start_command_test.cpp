// The start command: what it checks and repairs, and a box that is open while the dialog closes.
#include "remote/start_command.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/doubles/loaded_plug_in.h"

namespace quill {
namespace {

using Strings = std::vector<std::string>;

// What becomes of three fields; an empty message stands for a request.
struct Input {
  const char16_t* min_ping;
  const char16_t* max_ping;
  const char16_t* port;
  const char* outcome;  // message or report, "" when a request is sent
  const char* fields;   // afterwards
};

void PrintTo(const Input& input, std::ostream* out) {
  *out << ToUtf8(input.min_ping) << "/" << ToUtf8(input.max_ping) << "/" << ToUtf8(input.port);
}

struct CheckedInput : testing::TestWithParam<Input> {};

TEST_P(CheckedInput, IsRepairedOrRefused) {
  const Input& input = GetParam();
  LoadedPlugIn host;
  const auto text_box = [&](TextView key) -> ui::TextBox& { return host.Option<ui::TextBox>(key); };
  text_box(u"txtName").SetText(u"Night");
  text_box(u"txtMinPing").SetText(input.min_ping);
  text_box(u"txtMaxPing").SetText(input.max_ping);
  text_box(u"txtPort").SetText(input.port);
  host.Open([&] {
    host.SelectMap();
    host.Press(u"cmdStart");
  });
  const Strings outcome = host.Reports().empty() ? host.Boxes() : host.Reports();
  EXPECT_EQ(outcome, *input.outcome != '\0' ? Strings{input.outcome} : Strings());
  EXPECT_EQ(
      host.Value(u"txtMinPing") + "/" + host.Value(u"txtMaxPing") + "/" + host.Value(u"txtPort"),
      input.fields);
  const bool sent = *input.outcome == '\0';
  EXPECT_EQ(host.kit().files.size(), sent ? 2u : 1u);
  EXPECT_EQ(host.module.PendingCommand, sent ? u"StartGame" : u"LoadForm");
  EXPECT_EQ(host.toolkit.screen_pointer(), sent ? ui::Pointer::kBusy : ui::Pointer::kDefault);
}

constexpr const char* kBadMaxPing = "Error!|Max Ping Field is not numeric!";
constexpr const char* kBadPort = "Error!|Game Port Field is not numeric!";

INSTANTIATE_TEST_SUITE_P(
    Fields, CheckedInput,
    testing::Values(Input{u"0", u"1500", u"17479", "", "0/1500/17479"},
                    Input{u"", u"1500", u"", "", "0/1500/17479"},
                    Input{u"70000", u"70000", u"0", "", "0/1500/17479"},
                    Input{u"65535", u"65535", u"00", "", "65535/65535/00"},
                    Input{u"65536", u"65535.5", u" 0", "", "0/1500/ 0"},
                    Input{u"-5", u"99999999999999999999", u"+80.5", "", "-5/1500/+80.5"},
                    Input{u"", u"abc", u"0", kBadMaxPing, "0/abc/0"},
                    Input{u"70000", u"", u"80a", kBadMaxPing, "0//80a"},
                    Input{u"1", u"1e3", u"0", kBadMaxPing, "1/1e3/0"},
                    Input{u"1", u"70000", u"80a", kBadPort, "1/1500/80a"},
                    Input{u"1", u"5", u" ", kBadPort, "1/5/ "},
                    Input{u"low", u"abc", u"", "cmdStart_Error|13|Type mismatch", "low/abc/"},
                    Input{u" ", u"5", u"", "cmdStart_Error|13|Type mismatch", " /5/"},
                    Input{u"2147483648", u"5", u"", "cmdStart_Error|6|Overflow", "2147483648/5/"}));

// The host closes the dialog while its kit is busy with a second start.
TEST(StartCommand, TellsSinceWhenItWaitsAndSendsNothingForAClosedDialog) {
  LoadedPlugIn host;
  host.Option<ui::TextBox>(u"txtName").SetText(u"Night");
  host.Open([&] {
    host.SelectMap();
    host.clock.SetMinuteOfDay(14 * 60 + 5);
    host.Press(u"cmdStart");
    EXPECT_EQ(host.dialog().Get<ui::Label>(u"lblWaiting").caption(), u"Awaiting reply since 14:05");
    host.kit().before = [&](const std::string& operation) {
      if (operation == "CompressString") host.dialog().Unload();
    };
    host.Press(u"cmdStart");
  });
  EXPECT_EQ(host.kit().files.size(), 2u);  // the query and the first start
}

TEST(StartCommand, AnsweredWhileTheFailureBoxIsOpenSurvivesACancel) {
  LoadedPlugIn host;
  host.Option<ui::TextBox>(u"txtName").SetText(u"Night");
  host.Open([&] {
    host.SelectMap();
    host.Press(u"cmdStart");
    host.toolkit.while_message_open = [&](const auto&) { host.Press(u"cmdCancel"); };
    host.plug_in().RemoteData(u"0");
  });
  EXPECT_EQ(host.Boxes(), Strings{"Failed!|Failed to initialize game process!"});
  EXPECT_EQ(host.module.dialog, nullptr);
}

}  // namespace
}  // namespace quill
