// Scenario files, and the reply that is built from them.
#include "host/remote/scenario.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "host/remote/settings_reply.h"
#include "host/remote/wire.h"
#include "support/runtime_error.h"

namespace quill::host {
namespace {

std::string Refusal(std::string_view bytes) {
  try {
    static_cast<void>(ParseScenario(bytes));
  } catch (const RuntimeError& error) {
    return ToUtf8(error.description());
  }
  return {};
}

std::vector<Text> Fields(const Scenario& scenario) {
  const Text payload = ReadFrame(SettingsReply(scenario));
  const std::vector<TextView> views = Split(payload, u"_");
  return {views.begin(), views.end()};
}

TEST(Scenario, AnEmptyOneIsAMachineWithItsInitialSettings) {
  const Scenario scenario = ParseScenario("");
  EXPECT_EQ(scenario.index, 1);
  const std::vector<Text> fields = Fields(scenario);
  ASSERT_EQ(fields.size(), 26u);
  const std::vector<Text> expected = {
      u"",  u"",  u"",  u"", u"1", u"16", u"0", u"1", u"25", u"10", u"20",   u"20",    u"0",
      u"0", u"1", u"1", u"", u"",  u"",   u"",  u"0", u"0",  u"0",  u"1500", u"17479", u""};
  EXPECT_EQ(fields, expected);
}

TEST(Scenario, EverySettingHasItsField) {
  const Scenario scenario = ParseScenario(
      "\xEF\xBB\xBF; a comment\r\n[profile]\nindex=-2\ntarget = \" a_VB6_b \"\n"
      "[Settings]\nHost Message = \"  hi \"\nServer Name = G\xC3\xA4ste = 1; no comment\n"
      "Country Code=DE\nPassword=pw\nsession type = lan ip\nMax Players=50\nStart Delay=3\n"
      "Loop Maps=2\nKill and Score Limit=500\nZone Timer=60\nRespawn Time=0\nTime Limit=101\n"
      "Nova Login=yes\nCustom Skins=1\nWindowed=no\nDedicated=0\nBlue Password=b\nRed Password=r\n"
      "Min Ping Check=YES\nMin Ping=12\nMax Ping Check=1\nMax Ping=\nGame Port=80\n"
      "[Fixed Values]\nSession Type=2\nMax Players=8\nMod=Team Sabre\nWindowed=no\nDedicated=no\n"
      "Custom Skins=yes\nNova Login=yes\n[Mods]\nNone\nTeam Sabre\n"
      "[Maps]\nFlagball: Bridge <2 <BR.BMS>\n5:A: b<C D.bms>\n[Raw Fields]\n19=x y\n");
  EXPECT_EQ(scenario.index, -2);
  EXPECT_EQ(scenario.target, u" a_VB6_b ");
  std::vector<Text> fields = Fields(scenario);
  ASSERT_EQ(fields.size(), 33u);
  for (const int field : {0, 1, 2, 3, 16, 17, 18}) {
    fields[static_cast<std::size_t>(field)] = DecodeField(fields[static_cast<std::size_t>(field)]);
  }
  const std::size_t bar = fields[25].find(u'|');
  EXPECT_EQ(DecodeField(fields[25].substr(0, bar)), u"Bridge <2 <BR.BMS>8");
  EXPECT_EQ(DecodeField(fields[25].substr(bar + 1)), u"A: b <C D.bms>5");
  fields[25].clear();
  const std::vector<Text> expected = {u"  hi ",
                                      u"G\u00E4ste = 1; no comment",
                                      u"DE",
                                      u"pw",
                                      u"2",
                                      u"50",
                                      u"3",
                                      u"2",
                                      u"500",
                                      u"60",
                                      u"0",
                                      u"101",
                                      u"1",
                                      u"1",
                                      u"0",
                                      u"0",
                                      u"None|Team Sabre",
                                      u"b",
                                      u"r",
                                      u"x y",
                                      u"1",
                                      u"12",
                                      u"1",
                                      u"",
                                      u"80",
                                      u"",
                                      u"2",
                                      u"8",
                                      u"Team Sabre",
                                      u"0",
                                      u"0",
                                      u"1",
                                      u"1"};
  EXPECT_EQ(fields, expected);
}

TEST(Scenario, RawFieldsReachBeyondTheReply) {
  const Scenario scenario = ParseScenario("[Raw Fields]\n27=abc\n4=60");
  const std::vector<Text> fields = Fields(scenario);
  ASSERT_EQ(fields.size(), 28u);
  EXPECT_EQ(fields[4], u"60");
  EXPECT_EQ(fields[26], u"");
  EXPECT_EQ(fields[27], u"abc");
}

TEST(Scenario, StartsAreUnderstood) {
  const StartBehaviour run =
      ParseScenario("[Start]\naction = RUN\nCommand = ./go {record}\nDelay = 1.25\nNumber=-3")
          .start;
  EXPECT_EQ(run.action, StartAction::kRun);
  EXPECT_EQ(run.command, u"./go {record}");
  EXPECT_EQ(run.delay, std::chrono::milliseconds(1250));
  EXPECT_EQ(run.number, -3);
  EXPECT_EQ(ParseScenario("[Start]\nAction=fail\nDelay=2").start.delay, std::chrono::seconds(2));
  EXPECT_EQ(ParseScenario("[Start]\nAction=never answer").start.action, StartAction::kNever);
  EXPECT_EQ(ParseScenario("[Start]\nAction=answer rubbish\nText=\" \"").start.text, u" ");
}

TEST(Scenario, WhatIsWrongIsToldWithItsLine) {
  const struct {
    std::string_view bytes;
    std::string_view told;
  } cases[] = {
      {"Index = 1", "line 1: there is no section before"},
      {"\r\n\r\n[Nowhere]", "line 3: there is no section [Nowhere]"},
      {"[Profile", "line 1: the section's name"},
      {"[Profile]\r[Profile]", "line 2: the section [Profile] is given twice"},
      {"[Profile]\nIndex = 1.5", "line 2: Index must be a whole number, not \"1.5\""},
      {"[Profile]\nIndex", "line 2: a line of this section reads name = value"},
      {"[Profile]\nColour = 1", "line 2: a profile has"},
      {"[Operator]\nChange GS Everything = 1", "line 2: there is no right"},
      {"[Settings]\nMax Players = 51",
       "line 2: Max Players must be a number from 1 to 50, not \"51\""},
      {"[Settings]\nMax Players = +5", "line 2: Max Players"},
      {"[Settings]\nSession Type = WAN", "or \"Tiodioksi\" or \"LAN IP\", not \"WAN\""},
      {"[Settings]\nNova Login = maybe", "line 2: Nova Login must be yes or no"},
      {"[Settings]\nGame Port = 1_2", "line 2: Game Port must be a text without \"_\""},
      {"[Settings]\nMod = None", "line 2: there is no setting \"Mod\""},
      {"[Settings]\nMax Players=1\n\nmax players=2", "line 4: \"max players\" is given twice"},
      {"[Mods]\nA|B", "line 2: a mod's name"},
      {"[Mods]\nA\nA", "line 3: the mod \"A\" is given twice"},
      {"[Maps]\nHarbour <H.BMS>", "line 2: a map reads"},
      {"[Maps]\n9: Harbour <H.BMS>", "line 2: there is no game type \"9\""},
      {"[Maps]\n0: <H.BMS>", "line 2: a map has"},
      {"[Maps]\n0: H <>", "line 2: a map has"},
      {"[Maps]\n0: H <a.bms>\n1: H <a.bms>\n0: J <A.BMS>", "line 4: the map A.BMS is given twice"},
      {"[Raw Fields]\n100 = x", "line 2: a field's number"},
      {"[Start]\nAction = explode", "line 2: Action must be"},
      {"[Start]\nNumber = 0", "line 2: Number 0"},
      {"[Start]\nDelay = -1", "line 2: Delay must be"},
      {"[Start]\nDelay = 0.0001", "line 2: Delay must be"},
      {"[Start]\nDelay = 99999", "line 2: Delay must be"},
      {"[Start]\nAction = run", "no Command"},
      {"[Start]\nCommand = x", "not Action = run"},
      {"[Start]\nText = x", "not Action = answer rubbish"},
  };
  for (const auto& [bytes, told] : cases) {
    EXPECT_NE(Refusal(bytes).find(told), std::string::npos)
        << bytes << "\n  gave: " << Refusal(bytes);
  }
}

TEST(Scenario, TheShippedOneIsInOrder) {
  std::ifstream file(QUILL_SOURCE_DIR "/scenarios/quick-start.scenario", std::ios::binary);
  const std::string bytes((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
  const Scenario scenario = ParseScenario(bytes);
  EXPECT_TRUE(scenario.has_fixed_values);
  EXPECT_EQ(scenario.mods, (std::vector<Text>{u"None", u"Team Sabre"}));
  EXPECT_GE(scenario.maps.size(), 5u);
  EXPECT_EQ(Fields(scenario).size(), 33u);
}

}  // namespace
}  // namespace quill::host
