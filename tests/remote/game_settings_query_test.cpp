// A game-settings reply fills the dialog, step by step.
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "tests/doubles/loaded_plug_in.h"
#include "tests/doubles/settings_reply.h"

namespace quill {
namespace {

using Values = std::map<std::string, std::string>;

struct GameSettingsReply : testing::Test {
  LoadedPlugIn host;
  SettingsReply reply;

  // Opens the dialog, delivers `reply` while it is shown, and hides it again.
  void Deliver() {
    host.Open([&] { host.plug_in.RemoteData(reply.Frame()); });
  }
  void Disable(std::initializer_list<TextView> keys) {
    for (TextView key : keys) host.Option(key).SetEnabled(false);
  }
  Values ValuesOf(const Values& like) {
    Values values;
    for (const auto& [key, value] : like) values[key] = host.Value(FromUtf8(key));
    return values;
  }
  std::vector<std::string> ServerMaps() {
    std::vector<std::string> maps;
    const ServerMapList& list = host.module.dialog.maps.server;
    for (int i = 1; i <= list.Count(); ++i) {
      maps.push_back(ToUtf8(Concat({list.ServerMapNames(i), u"/", list.ServerMapFiles(i), u"/",
                                    list.ServerMapGameTypes(i)})));
    }
    return maps;
  }
};

const Values kWholeReply = {{"txtMessage", "welcome"}, {"txtName", "Night Server"},
                            {"txtCountry", "de"},      {"txtPassword", "secret"},
                            {"lstSession", "1"},       {"lstMax", "23"},
                            {"lstDelay", "2"},         {"chkLoop", "1"},
                            {"lstKills", "24"},        {"lstScore", "24"},
                            {"lstZone", "29"},         {"lstRespawn", "29"},
                            {"lstTime", "39"},         {"chkNova", "1"},
                            {"chkSkins", "1"},         {"chkWindow", "1"},
                            {"chkDedi", "1"},          {"cboMods", "None"},
                            {"txtBlue", "blue"},       {"txtRed", "red"},
                            {"chkMinPing", "1"},       {"txtMinPing", "10"},
                            {"chkMaxPing", "0"},       {"txtMaxPing", "900"},
                            {"txtPort", "17500"}};

TEST_F(GameSettingsReply, FillsEveryOptionWhateverItsLength) {
  for (std::size_t fields : {std::size_t{26}, std::size_t{33}, std::size_t{40}}) {
    SCOPED_TRACE(fields);
    LoadedPlugIn fresh;
    fresh.Open([&] {
      EXPECT_EQ(fresh.dialog().pointer(), ui::Pointer::kBusy);
      fresh.plug_in.RemoteData(SettingsReply().Keep(fields).Frame());
      EXPECT_EQ(fresh.dialog().pointer(), ui::Pointer::kDefault);
    });
    for (const auto& [key, value] : kWholeReply) {
      EXPECT_EQ(fresh.Value(FromUtf8(key)), value) << key;
    }
    EXPECT_EQ(fresh.Boxes(), std::vector<std::string>());
  }
}

TEST_F(GameSettingsReply, ShowsWhatTheNumbersMean) {
  Deliver();
  const auto shown = [&](TextView key) {
    const auto& list = host.dialog().Get<ui::ListBox>(key);
    return ToUtf8(list.Item(list.ListIndex()));
  };
  EXPECT_EQ(shown(u"lstKills"), "25");
  EXPECT_EQ(shown(u"lstScore"), "25");
  EXPECT_EQ(shown(u"lstZone"), "30");
  EXPECT_EQ(shown(u"lstRespawn"), "29");
  EXPECT_EQ(shown(u"lstTime"), "39");
  EXPECT_EQ(shown(u"lstDelay"), "2 Minutes");
}

TEST_F(GameSettingsReply, BringsTheRemoteMachinesOwnMaps) {
  reply.Set(25, Base64(" Shadow Valley  < sv.bms >5") + u"|  ||" + Base64("<x.bms>0") + u"|");
  Deliver();
  EXPECT_EQ(ServerMaps(), (std::vector<std::string>{"Shadow Valley/sv.bms/5", "/x.bms/0"}));
  // The mod was chosen after the maps came, so the list of the shown game type ends in them.
  const ui::ListBox& available = host.dialog().lstAvlMaps;
  ASSERT_GT(available.Count(), 1);
  EXPECT_EQ(ToUtf8(available.Item(available.Count() - 1)), " <x.bms>");
  EXPECT_EQ(ToUtf8(available.tooltip()), "Maps: 10 / 119");
}

TEST_F(GameSettingsReply, KeepsTextsThatItLeavesEmptyButEmptiesPingsAndPort) {
  for (std::size_t field : {0u, 1u, 2u, 3u, 17u, 18u, 21u, 23u, 24u}) reply.Set(field, u"");
  for (TextView key : {u"txtMessage", u"txtName", u"txtCountry", u"txtPassword", u"txtBlue",
                       u"txtRed", u"txtMinPing", u"txtMaxPing", u"txtPort"}) {
    host.Option<ui::TextBox>(key).SetText(u"before");
  }
  Deliver();
  const Values expected = {
      {"txtMessage", "before"},  {"txtName", "before"}, {"txtCountry", "before"},
      {"txtPassword", "before"}, {"txtBlue", "before"}, {"txtRed", "before"},
      {"txtMinPing", ""},        {"txtMaxPing", ""},    {"txtPort", ""}};
  EXPECT_EQ(ValuesOf(expected), expected);
}

TEST_F(GameSettingsReply, TakesNumbersAsTheyMayBeWritten) {
  reply.Set(4, u"0").Set(5, u" 2.5 ").Set(6, u"-1").Set(7, u"2").Set(8, u"+500").Set(20, u"0.4");
  Deliver();
  const Values expected = {{"lstSession", "-1"}, {"lstMax", "1"},     {"lstDelay", "-1"},
                           {"chkLoop", "1"},     {"lstKills", "499"}, {"chkMinPing", "0"}};
  EXPECT_EQ(ValuesOf(expected), expected);
  EXPECT_EQ(host.Boxes(), std::vector<std::string>());
}

TEST_F(GameSettingsReply, GivesForbiddenOptionsTheirFixedValuesOrDefaults) {
  const struct {
    const char* what;
    std::size_t fields;
    Values expected;
  } cases[] = {
      {"without fixed values",
       26,
       {{"lstSession", "0"},
        {"lstMax", "15"},
        {"chkNova", "0"},
        {"chkSkins", "0"},
        {"chkDedi", "1"},
        {"cboMods", "None"},
        {"txtPort", "17500"}}},
      {"with fixed values",
       33,
       {{"lstSession", "0"},
        {"lstMax", "7"},
        {"chkNova", "0"},
        {"chkSkins", "0"},
        {"chkDedi", "0"},
        {"cboMods", "Team Sabre"},
        {"txtPort", "17500"}}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    LoadedPlugIn fresh;
    for (const auto& [key, value] : c.expected) {
      fresh.Option(FromUtf8(key)).SetEnabled(false);
    }
    fresh.Open([&] { fresh.plug_in.RemoteData(SettingsReply().Keep(c.fields).Frame()); });
    for (const auto& [key, value] : c.expected) {
      EXPECT_EQ(fresh.Value(FromUtf8(key)), value) << key;
    }
  }
}

TEST_F(GameSettingsReply, RepairsFixedValuesThatAreNoNumbers) {
  for (std::size_t field : {26u, 27u, 29u, 30u, 31u, 32u}) reply.Set(field, u"abc");
  Disable({u"lstSession", u"lstMax", u"chkNova", u"chkSkins", u"chkDedi"});
  Deliver();
  const Values expected = {
      {"lstSession", "0"}, {"lstMax", "16"}, {"chkNova", "0"}, {"chkSkins", "0"}, {"chkDedi", "1"}};
  EXPECT_EQ(ValuesOf(expected), expected);
}

TEST_F(GameSettingsReply, ChecksRunWindowedInTheEnd) {
  // Twice with a box that the reply had cleared in between.
  std::vector<int> states;
  auto& box = host.Option<ui::CheckBox>(u"chkWindow");
  box.on_click = [&] { states.push_back(box.value()); };
  Deliver();
  EXPECT_EQ(states, (std::vector<int>{0, 1}));
}

TEST_F(GameSettingsReply, ChoosesTheModThatIsFixed) {
  const struct {
    TextView fixed;
    const char* chosen;
  } cases[] = {{u"EXP1", "Team Sabre"},
               {u"exp1.PFF", "Team Sabre"},
               {u"TeamSabre", "Team Sabre"},
               {u"TEAM SABRE", "Team Sabre"},
               {u"  ", "None"},
               {u"", "None"},
               {u"Other", "Other"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(ToUtf8(c.fixed));
    LoadedPlugIn fresh;
    fresh.Option(u"cboMods").SetEnabled(false);
    SettingsReply fixed_mod;
    fixed_mod.Set(16, Base64("First| Other|  |Other|Team Sabre|None|")).Set(28, Text(c.fixed));
    fresh.Open([&] { fresh.plug_in.RemoteData(fixed_mod.Frame()); });
    EXPECT_EQ(fresh.Value(u"cboMods"), c.chosen);
    EXPECT_EQ(fresh.dialog().Get<ui::ComboBox>(u"cboMods").Count(), 5);
    EXPECT_EQ(fresh.Boxes(), std::vector<std::string>());
  }
}

TEST_F(GameSettingsReply, AppliedAgainReplacesMapsAndAppendsMods) {
  host.Open([&] {
    host.plug_in.RemoteData(reply.Frame());
    reply.Set(25, Base64("Lone <lone.bms>0")).Set(0, Base64("again"));
    host.plug_in.RemoteData(reply.Frame());
  });
  EXPECT_EQ(ServerMaps(), std::vector<std::string>{"Lone/lone.bms/0"});
  EXPECT_EQ(host.Value(u"txtMessage"), "again");
  EXPECT_EQ(host.dialog().Get<ui::ComboBox>(u"cboMods").Count(), 4);
  // The same mod is chosen again, which refreshes the available maps.
  const ui::ListBox& available = host.dialog().lstAvlMaps;
  EXPECT_EQ(ToUtf8(available.Item(available.Count() - 1)), "Lone <lone.bms>");
  EXPECT_EQ(host.module.remote.PendingCommand, u"LoadForm");
}

TEST_F(GameSettingsReply, CreatesADialogThatIsGone) {
  host.Open([&] { host.dialog().Unload(); });
  ASSERT_EQ(host.module.dialog.dialog, nullptr);
  host.plug_in.RemoteData(reply.Frame());
  ASSERT_NE(host.module.dialog.dialog, nullptr);
  EXPECT_EQ(host.Value(u"txtName"), "Night Server");
  EXPECT_FALSE(host.dialog().shown());
}

// A reply with one fault: what is reported, which option was the last to be filled and which the
// first to be left as it was.
struct Fault {
  std::size_t field;
  const char16_t* value;
  const char* report;
  const char* filled;
  const char* left;
};

void PrintTo(const Fault& fault, std::ostream* out) {
  *out << "field " << fault.field << " is " << ToUtf8(fault.value);
}

struct FaultyReply : testing::TestWithParam<Fault> {};

TEST_P(FaultyReply, EndsAtTheFaultAndKeepsWhatCameBefore) {
  const Fault& fault = GetParam();
  LoadedPlugIn host;
  const std::string untouched = fault.left ? host.Value(FromUtf8(fault.left)) : "";
  SettingsReply reply;
  reply.Set(fault.field, fault.value);
  host.Open([&] {
    host.plug_in.RemoteData(reply.Frame());
    EXPECT_EQ(host.dialog().pointer(), ui::Pointer::kDefault);
  });
  EXPECT_EQ(host.Reports(), std::vector<std::string>{fault.report});
  if (fault.filled) {
    EXPECT_EQ(host.Value(FromUtf8(fault.filled)), kWholeReply.at(fault.filled));
  }
  if (fault.left) {
    EXPECT_NE(untouched, kWholeReply.at(fault.left)) << "proves nothing";
    EXPECT_EQ(host.Value(FromUtf8(fault.left)), untouched);
  }
}

constexpr const char* kMismatch = "RemoteData|13|Type mismatch [0, 0]";
constexpr const char* kOutOfList = "RemoteData|380|Invalid property value";
constexpr const char* kTooLarge = "RemoteData|6|Overflow";

INSTANTIATE_TEST_SUITE_P(
    Fields, FaultyReply,
    testing::Values(Fault{25, u"=", "RemoteData|5|Base64 text: the length 1 is not a multiple of 4",
                          nullptr, "txtMessage"},
                    Fault{25, u"QQ==", "RemoteData|5|Invalid procedure call or argument", nullptr,
                          "txtMessage"},
                    Fault{0, u"=", "RemoteData|5|Base64 text: the length 1 is not a multiple of 4",
                          nullptr, "txtName"},
                    Fault{3, u" ", "RemoteData|5|Base64 text: the length 1 is not a multiple of 4",
                          "txtCountry", "lstSession"},
                    Fault{4, u"", kMismatch, "txtPassword", "lstSession"},
                    Fault{4, u"4", kOutOfList, "txtPassword", "lstSession"},
                    Fault{5, u"60", kOutOfList, "lstSession", "lstMax"},
                    Fault{5, u"40000", kTooLarge, "lstSession", "lstMax"},
                    Fault{6, u"4", kOutOfList, "lstMax", "lstDelay"},
                    Fault{7, u"on", kMismatch, "lstDelay", "chkLoop"},
                    Fault{7, u"3", kOutOfList, "lstDelay", "chkLoop"},
                    Fault{8, u"1e2", kMismatch, "chkLoop", "lstKills"},
                    Fault{8, u"501", kOutOfList, "chkLoop", "lstKills"},
                    Fault{9, u"-1", kOutOfList, "lstScore", "lstZone"},
                    Fault{10, u"&H10", kMismatch, "lstZone", "lstRespawn"},
                    Fault{11, u"1,5", kMismatch, "lstRespawn", "lstTime"},
                    Fault{12, u"True", kMismatch, "lstTime", "chkNova"},
                    Fault{13, u"", kMismatch, "chkNova", "chkSkins"},
                    Fault{14, u"x", "RemoteData|13|Type mismatch [x, 0]", "chkSkins", "chkDedi"},
                    Fault{15, u"-1", kOutOfList, "chkSkins", "chkDedi"},
                    Fault{16, u"QQ=",
                          "RemoteData|5|Base64 text: the length 3 is not a multiple of 4",
                          "chkDedi", "cboMods"},
                    Fault{16, u"", kOutOfList, "chkDedi", "txtBlue"},
                    Fault{18, u"QQ=",
                          "RemoteData|5|Base64 text: the length 3 is not a multiple of 4",
                          "txtBlue", "txtRed"},
                    Fault{20, u"", kMismatch, "txtRed", "chkMinPing"},
                    Fault{22, u"?", kMismatch, "txtMinPing", "txtMaxPing"}));

TEST_F(GameSettingsReply, ReportsAModThatTheListDoesNotHold) {
  Disable({u"cboMods"});
  reply.Set(28, u"Fog of War");
  Deliver();
  ASSERT_EQ(host.Reports().size(), 1u);
  EXPECT_TRUE(host.Reports()[0].starts_with("RemoteData|383|")) << host.Reports()[0];
  EXPECT_NE(host.Reports()[0].find("Fog of War"), std::string::npos) << host.Reports()[0];
  EXPECT_EQ(host.Value(u"txtBlue"), "");
}

TEST_F(GameSettingsReply, OfTooFewFieldsEmptiesTheServerMapsAndFails) {
  Deliver();
  ASSERT_EQ(ServerMaps().size(), 2u);
  SettingsReply cut;
  cut.Set(0, Base64("cut")).Keep(25);
  host.Open([&] { host.plug_in.RemoteData(cut.Frame()); });
  EXPECT_EQ(ServerMaps().size(), 0u);
  EXPECT_EQ(host.Value(u"txtMessage"), "welcome");
  ASSERT_EQ(host.Reports().size(), 1u);
  EXPECT_TRUE(host.Reports()[0].starts_with("RemoteData|9|Subscript out of range"));
}

TEST_F(GameSettingsReply, MustBringAllFixedValuesOrNone) {
  for (std::size_t fields = 27; fields < 33; ++fields) {
    SCOPED_TRACE(fields);
    LoadedPlugIn fresh;
    fresh.Open([&] { fresh.plug_in.RemoteData(SettingsReply().Keep(fields).Frame()); });
    ASSERT_EQ(fresh.Reports().size(), 1u);
    EXPECT_TRUE(fresh.Reports()[0].starts_with("RemoteData|9|")) << fresh.Reports()[0];
    EXPECT_EQ(fresh.Value(u"txtMessage"), "");
    EXPECT_EQ(fresh.module.dialog.maps.server.Count(), 2);
  }
}

TEST_F(GameSettingsReply, KeepsTheMapsBeforeOneThatFails) {
  reply.Set(25, Base64("A <a.bms>0") + u"|!!!!|" + Base64("B <b.bms>0"));
  Deliver();
  EXPECT_EQ(ServerMaps(), std::vector<std::string>{"A/a.bms/0"});
}

}  // namespace
}  // namespace quill
