// The start command: what it checks and repairs, what it sends, and what the answer does.
#include "remote/start_command.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "tests/doubles/loaded_plug_in.h"
#include "tests/doubles/settings_reply.h"

namespace quill {
namespace {

using Strings = std::vector<std::string>;

struct StartCommand : testing::Test {
  LoadedPlugIn host;

  StartCommand() { SetText(u"txtName", u"Night"); }
  void SetText(TextView key, TextView text) { host.Option<ui::TextBox>(key).SetText(text); }
  void Check(TextView key, int state) { host.Option<ui::CheckBox>(key).SetValue(state); }
  void Choose(TextView key, int position) { host.Option<ui::ListBox>(key).SetListIndex(position); }
  // Shows the dialog with one map selected and presses Start.
  void Start() {
    host.Open([&] {
      host.SelectMap();
      host.Press(u"cmdStart");
    });
  }
  // The payload of the newest request.
  Text Payload() {
    const Text& line = host.kit().files.back().text;
    constexpr TextView kPrefix = u"Plugin_kvrBHDGS_StartGameRem_abc_VB6_3_";
    EXPECT_TRUE(line.starts_with(kPrefix)) << ToUtf8(line);
    return DecodeFrame(TextView(line).substr(kPrefix.size()), host.kit());
  }
  bool Sent() { return host.kit().files.size() == 2; }  // the query is the first
};

TEST_F(StartCommand, SendsTheDialogAsItOpens) {
  Start();
  ASSERT_TRUE(Sent());
  EXPECT_EQ(host.kit().files[1].path, u"C:\\Host\\RCData\\reply_kvrBHDGS_StartGameRem.txt");
  // Unchosen lists send their position, the time limit gets its first.
  EXPECT_EQ(ToUtf8(Payload()),
            "_TmlnaHQ=___0_0_-1_0_0_0_0_-1_0_0_0_1_0___0_0_0_1500_14863_17479_|"
            "-RHVuZQ==_ZHVuZS5ibXM=_0_False");
  EXPECT_EQ(host.Value(u"lstTime"), "0");
  EXPECT_EQ(host.Value(u"chkTeam"), "0");
  EXPECT_EQ(host.module.remote.PendingCommand, u"StartGame");
  EXPECT_EQ(host.ScreenPointer(), ui::Pointer::kBusy);
  EXPECT_EQ(host.Boxes(), Strings());
}

TEST_F(StartCommand, SendsEveryOptionAndTheRotation) {
  SetText(u"txtMessage", u" hi ");
  SetText(u"txtCountry", u"de");
  SetText(u"txtPassword", u"  ");
  SetText(u"txtBlue", u"b\u00FC");
  SetText(u"txtRed", u"r\u4E2D");
  SetText(u"txtMinPing", u"5");
  SetText(u"txtMaxPing", u" 900 ");
  SetText(u"txtPort", u"17500");
  const std::pair<TextView, int> lists[] = {{u"lstSession", 1},  {u"lstMax", 2},   {u"lstDelay", 3},
                                            {u"lstKills", 4},    {u"lstScore", 5}, {u"lstZone", 29},
                                            {u"lstRespawn", 30}, {u"lstTime", 8}};
  for (const auto& [key, position] : lists) Choose(key, position);
  for (TextView key : {u"chkNova", u"chkWindow", u"chkMinPing"}) Check(key, 1);
  for (TextView key : {u"chkSkins", u"chkDedi", u"chkMaxPing"}) Check(key, 0);
  Check(u"chkLoop", 2);
  auto& mods = host.Option<ui::ComboBox>(u"cboMods");
  mods.AddItem(u"Team Sabre");
  mods.SetListIndex(0);
  host.Open([&] {
    host.SelectMap({u"Dune", u"dune.bms", 7, false});
    host.SelectMap({u"Own Map", u"own.bms", 8, true});
    host.Press(u"cmdStart");
  });
  ASSERT_TRUE(Sent());
  EXPECT_EQ(ToUtf8(Payload()),
            "IGhpIA==_TmlnaHQ=_ZGU=__2_3_3_1_5_6_30_30_8_1_0_1_0_Yvw=_cj8=_1_5_0_"
            " 900 _14863_17500_VGVhbSBTYWJyZQ==|"
            "-RHVuZQ==_ZHVuZS5ibXM=_7_False-T3duIE1hcA==_b3duLmJtcw==_8_True");
  EXPECT_EQ(host.Value(u"chkLoop"), "1");
}

TEST_F(StartCommand, CountsThePayload) {
  SetText(u"txtMessage", Text(70, u'm'));
  Start();
  const TextView line = host.kit().files.back().text;
  const Text length = Decimal(static_cast<std::int64_t>(Payload().size()));
  EXPECT_TRUE(line.starts_with(
      Concat({u"Plugin_kvrBHDGS_StartGameRem_abc_VB6_3_", length, u"[-]Scorvane[-]"})));
}

TEST_F(StartCommand, PacksCheckBoxesIntoFlags) {
  const struct {
    std::map<Text, int> boxes;
    std::int32_t flags;
  } cases[] = {
      {{}, 14863},
      {{{u"chkFFKills", 1},
        {u"chkFFTags", 1},
        {u"chkFFWarn", 1},
        {u"chkTracers", 1},
        {u"chkTeam", 1}},
       14338},
      {{{u"chkFFTags", 0}, {u"chkClays", 1}, {u"chkAutoRange", 1}}, 114191},
      {{{u"chkFFKills", 1}}, 14863 - 512},
      {{{u"chkFFTags", 0}}, 14863 + 1024},
      {{{u"chkFFWarn", 1}}, 14863 - 8},
      {{{u"chkTeam", 1}}, 14863 - 4},
      {{{u"chkTracers", 1}}, 14863 - 1},
      {{{u"chkClays", 1}}, 14863 + 32768},
      {{{u"chkAutoRange", 1}}, 14863 + 65536},
  };
  for (const auto& c : cases) {
    LoadedPlugIn fresh;
    for (const auto& [key, state] : c.boxes) {
      fresh.Option<ui::CheckBox>(key).SetValue(state);
    }
    EXPECT_EQ(OptionFlags(*TakeDialog(fresh.module.dialog)), c.flags);
  }
}

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
  EXPECT_EQ(host.module.remote.PendingCommand, sent ? u"StartGame" : u"LoadForm");
  EXPECT_EQ(host.ScreenPointer(), sent ? ui::Pointer::kBusy : ui::Pointer::kDefault);
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

TEST_F(StartCommand, NeedsANameAndMapsBeforeAnythingElse) {
  SetText(u"txtMinPing", u"");
  SetText(u"txtMaxPing", u"abc");
  host.Open([&] {
    host.Press(u"cmdStart");
    SetText(u"txtName", u"");
    host.Press(u"cmdStart");
  });
  EXPECT_EQ(host.Boxes(),
            (Strings{"Error!|You haven't selected any maps!", "Error!|Server Name is empty!"}));
  EXPECT_EQ(host.Value(u"txtMinPing"), "");
  EXPECT_FALSE(Sent());
}

TEST_F(StartCommand, AnswersEveryMouseButtonOverFaceAndCaption) {
  for (TextView control : {u"cmdStart", u"cmdStartImg"}) {
    for (std::int16_t button : {ui::kLeftButton, ui::kRightButton, ui::kMiddleButton}) {
      LoadedPlugIn fresh;
      fresh.Open([&] { fresh.Press(control, button); });
      EXPECT_EQ(fresh.Boxes(), Strings{"Error!|Server Name is empty!"})
          << ToUtf8(control) << button;
    }
  }
}

TEST_F(StartCommand, PressedTwiceSendsTheSameAgain) {
  Text first;
  host.Open([&] {
    host.SelectMap();
    host.Press(u"cmdStart");
    first = host.kit().files.back().text;
    host.Press(u"cmdStart");
  });
  ASSERT_EQ(host.kit().files.size(), 3u);
  EXPECT_EQ(host.kit().files.back().text, first);
}

TEST_F(StartCommand, LeavesThingsAsTheFailureFoundThem) {
  const struct {
    const char* operation;
    TextView pending;
    ui::Pointer pointer;
  } cases[] = {{"CompressString", u"LoadForm", ui::Pointer::kDefault},
               {"WriteFile", u"StartGame", ui::Pointer::kBusy}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.operation);
    LoadedPlugIn fresh;
    fresh.Option<ui::TextBox>(u"txtName").SetText(u"Night");
    fresh.Open([&] {
      fresh.SelectMap();
      fresh.kit().FailAt(c.operation, RuntimeError(1234, u"full"));
      fresh.Press(u"cmdStart");
    });
    EXPECT_EQ(fresh.Reports(), Strings{"cmdStart_Error|1234|full"});
    EXPECT_EQ(fresh.module.remote.PendingCommand, c.pending);
    EXPECT_EQ(fresh.ScreenPointer(), c.pointer);
    EXPECT_EQ(fresh.Value(u"lstTime"), "0");
  }
}

TEST_F(StartCommand, AnsweredClosesTheDialogAndTellsOfAFailure) {
  const struct {
    TextView answer;
    bool closes;
    Strings boxes;
    Strings reports;
  } cases[] = {
      {u"0", true, {"Failed!|Failed to initialize game process!"}, {}},
      {u" 0.4 ", true, {"Failed!|Failed to initialize game process!"}, {}},
      {u"1", true, {}, {}},
      {u"-7", true, {}, {}},
      {u"yes", false, {}, {"RemoteData|13|Type mismatch [, ]"}},
      {u"", false, {}, {"RemoteData|13|Type mismatch [, ]"}},
      {u"3000000000", false, {}, {"RemoteData|6|Overflow"}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(ToUtf8(c.answer));
    LoadedPlugIn fresh;
    fresh.Option<ui::TextBox>(u"txtName").SetText(u"Night");
    bool still_there = true;
    fresh.Open([&] {
      fresh.SelectMap();
      fresh.Press(u"cmdStart");
      fresh.plug_in.RemoteData(c.answer);
      still_there = fresh.module.dialog.dialog != nullptr;
      EXPECT_EQ(fresh.ScreenPointer(), c.closes ? ui::Pointer::kDefault : ui::Pointer::kBusy);
    });
    EXPECT_EQ(still_there, !c.closes);
    EXPECT_EQ(fresh.module.remote.PendingCommand, u"StartGame");
    EXPECT_EQ(fresh.Reports(), c.reports);
    if (c.reports.empty()) {
      EXPECT_EQ(fresh.Boxes(), c.boxes);
    }
  }
}

TEST_F(StartCommand, AnsweredAfterCancelStillTellsOfAFailure) {
  host.Open([&] {
    host.SelectMap();
    host.Press(u"cmdStart");
    host.Press(u"cmdCancel");
  });
  ASSERT_EQ(host.module.dialog.dialog, nullptr);
  host.plug_in.RemoteData(u"0");
  EXPECT_EQ(host.Boxes(), Strings{"Failed!|Failed to initialize game process!"});
  EXPECT_EQ(host.module.dialog.dialog, nullptr);
}

TEST_F(StartCommand, AnsweredWhileTheFailureBoxIsOpenSurvivesACancel) {
  host.Open([&] {
    host.SelectMap();
    host.Press(u"cmdStart");
    host.toolkit.messages.while_open = [&] { host.Press(u"cmdCancel"); };
    host.plug_in.RemoteData(u"0");
  });
  EXPECT_EQ(host.Boxes(), Strings{"Failed!|Failed to initialize game process!"});
  EXPECT_EQ(host.module.dialog.dialog, nullptr);
}

}  // namespace
}  // namespace quill
