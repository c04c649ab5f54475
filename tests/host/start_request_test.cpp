// Start requests are decoded completely, and nothing that is wrong with one goes unnoticed.
#include "host/remote/start_request.h"

#include <gtest/gtest.h>

#include "host/remote/known_maps.h"
#include "host/remote/request_explanation.h"
#include "host/remote/wire.h"

namespace quill::host {
namespace {

// A good payload, field by field, for tests to spoil.
class Payload {
 public:
  Payload() {
    for (const TextView field :
         Split(u"_____32_-1_1_50_0_5_20_30_0_1_1_1___0_0_1_350_14863_17479_", u"_")) {
      fields_.emplace_back(field);
    }
    fields_.at(0) = EncodeField(u" hi ");
    fields_.at(1) = EncodeField(u"My Server");
    fields_.at(4) = u"1";
    fields_.at(17) = EncodeField(u"blue");
    fields_.at(25) = EncodeField(u"Team Sabre");
    maps_ = {Map(u"Road Rage", u"DMK_01A.BMS", u"0", u"False"),
             Map(u"Bridge <2", u"XAD.BMS", u"6", u"True")};
  }

  Payload& Set(std::size_t field, TextView value) {
    fields_.at(field) = value;
    return *this;
  }
  Payload& SetMaps(std::vector<Text> maps) {
    maps_ = std::move(maps);
    return *this;
  }
  static Text Map(TextView name, TextView file, TextView type, TextView flag) {
    return Concat({EncodeField(name), u"_", EncodeField(file), u"_", type, u"_", flag});
  }

  [[nodiscard]] Text Joined() const {
    Text text;
    for (const Text& field : fields_) text += text.empty() ? field : u"_" + field;
    text += u"|";
    for (const Text& map : maps_) text += u"-" + map;
    return text;
  }

 private:
  std::vector<Text> fields_;
  std::vector<Text> maps_;
};

StartRequest Decode(TextView payload) {
  Scenario scenario;
  scenario.maps = {{u"Bridge <2", u"xad.bms", 6}};
  const KnownMaps known(scenario);
  return DecodeStartPayload(
      payload, [&](const StartMap& map, TextView mod) { return known.Doubt(map, mod); });
}

// The findings as one text, errors first in each line.
std::string Findings(const StartRequest& request) {
  std::string all;
  for (const StartFinding& finding : request.findings) {
    all += (finding.is_error ? "error: " : "warning: ") + ToUtf8(finding.text) + "\n";
  }
  return all;
}

std::string FindingsOf(std::size_t field, TextView value) {
  return Findings(Decode(Payload().Set(field, value).Joined()));
}

TEST(StartRequest, AGoodOneIsDecodedCompletely) {
  const StartRequest request = Decode(Payload().Joined());
  EXPECT_EQ(Findings(request),
            "warning: field 6 (Start delay) has no value chosen\n"
            "warning: field 9 (Game score) has no value chosen\n");
  EXPECT_FALSE(request.HasErrors());
  const std::vector<TextView> meanings = Split(
      u"\" hi \";\"My Server\";\"\";\"\";Tiodioksi;32;nothing chosen;yes;50;nothing chosen;5;20;30;"
      u"no;yes;yes;yes;\"blue\";\"\";no;0;yes;350;see below;17479;\"Team Sabre\"",
      u";");
  ASSERT_EQ(request.fields.size(), meanings.size());
  for (std::size_t field = 0; field < meanings.size(); ++field) {
    EXPECT_EQ(request.fields[field].meaning, meanings[field]) << field;
  }
  EXPECT_EQ(request.mod, u"Team Sabre");
  ASSERT_EQ(request.maps.size(), 2u);
  EXPECT_EQ(request.maps[1].name, u"Bridge <2");
  EXPECT_EQ(request.maps[1].file, u"XAD.BMS");
  EXPECT_EQ(request.maps[1].game_type, 6);
  EXPECT_TRUE(request.maps[1].server_map);
  EXPECT_FALSE(request.maps[0].server_map);
}

TEST(StartRequest, FlagsAreToldBitByBit) {
  const auto on = [](TextView flags) {
    std::string names;
    for (const StartFlag& flag : Decode(Payload().Set(23, flags).Joined()).flags) {
      if (flag.is_on) names += ToUtf8(flag.name) + ";";
    }
    return names;
  };
  EXPECT_EQ(on(u"14863"), "Friendly tags;");
  EXPECT_EQ(on(u"14338"),
            "Friendly fire kills;Friendly tags;Friendly fire warning;Auto balance;Show tracers;");
  EXPECT_EQ(on(u"114191"), "Show team clays;Allow auto range;");
  EXPECT_NE(FindingsOf(23, u"0").find("error: field 23 (Option flags) lacks"), std::string::npos);
  EXPECT_NE(FindingsOf(23, u"14354").find("unknown bits: 16"), std::string::npos);
  EXPECT_NE(FindingsOf(23, u"-1").find("no set of flags"), std::string::npos);
}

TEST(StartRequest, EveryFieldIsCheckedForFormAndRange) {
  const struct {
    std::size_t field;
    TextView value;
    TextView told;
  } cases[] = {
      {0, u"abc", u"error: field 0 (Host message) is no Base64 text"},
      {0, u"ICA=", u"error: field 0 (Host message) holds blanks only"},
      {1, u"", u"error: field 1 (Server name) is empty"},
      {2, u"QUJD", u"warning: field 2 (Country code) is longer than 2"},
      {4, u"3", u"error: field 4 (Session type) is 3, outside 1 to 2"},
      {5, u"51", u"error: field 5 (Max players) is 51"},
      {5, u"05", u"error: field 5 (Max players) is no whole number"},
      {5, u"-1", u"error: field 5 (Max players) is -1"},
      {5, u"", u"error: field 5 (Max players) is no whole number"},
      {6, u"4", u"error: field 6 (Start delay) is 4"},
      {7, u"2", u"error: field 7 (Loop maps) must be 0 or 1"},
      {8, u"501", u"error: field 8 (Max kills)"},
      {9, u"99999999999", u"error: field 9 (Game score) is no whole number"},
      {10, u"61", u"error: field 10"},
      {11, u"121", u"error: field 11"},
      {12, u"101", u"error: field 12"},
      {16, u"True", u"error: field 16 (Run dedicated) must be 0 or 1"},
      {20, u"65536", u"error: field 20 (Min ping) is 65536"},
      {20, u"12.5", u"warning: field 20 (Min ping) is \"12.5\", taken as 12"},
      {22, u"1e3", u"error: field 22 (Max ping) is no number"},
      {22, u"-1", u"error: field 22 (Max ping) is -1"},
      {24, u"0", u"error: field 24 (Game port) is 0, outside 1"},
      {24, u"99999999999999", u"error: field 24 (Game port) is 99999999999999"},
      {24, u" 80", u"warning: field 24 (Game port) is \" 80\", taken as 80"},
      {25, u"!", u"error: field 25 (Mod and maps) is no Base64 text"},
      {25, u"", u"warning: field 25 (Mod and maps) names no mod"},
  };
  for (const auto& [field, value, told] : cases) {
    EXPECT_NE(FindingsOf(field, value).find(ToUtf8(told)), std::string::npos)
        << ToUtf8(told) << "\n  gave: " << FindingsOf(field, value);
  }
}

TEST(StartRequest, MapsAreCheckedOneByOne) {
  const auto findings = [](std::vector<Text> maps) {
    return Findings(Decode(Payload().Set(6, u"0").Set(9, u"1").SetMaps(std::move(maps)).Joined()));
  };
  const auto map = Payload::Map;
  EXPECT_EQ(findings({map(u"n", u"DMK_01A.BMS", u"0", u"False")}), "");
  EXPECT_EQ(findings({map(u"n", u"dmr_05.bms", u"0", u"False")}), "");
  EXPECT_NE(findings({}).find("error: there are no maps"), std::string::npos);
  EXPECT_NE(
      findings({map(u"n", u"DMK_01A.BMS", u"1", u"False")}).find("warning: map 1 is doubtful"),
      std::string::npos);
  EXPECT_NE(findings({map(u"n", u"XAD.BMS", u"5", u"True")}).find("warning: map 1 is doubtful"),
            std::string::npos);
  for (const Text& bad :
       {map(u"n", u"f", u"9", u"False"), map(u"n", u"f", u"07", u"False"),
        map(u"n", u"f", u"0", u"false"), map(u"n", u" ", u"0", u"False"), Text(u"a_b_0_False"),
        Text(u"QQ==_QQ==_0"), Text(u"QQ==_QQ==_0_True_1"), Text()}) {
    EXPECT_NE(findings({map(u"n", u"f", u"0", u"True"), bad}).find("error: map 2 "),
              std::string::npos)
        << ToUtf8(bad);
  }
  const Text good = map(u"n", u"DMK_01A.BMS", u"0", u"False");
  EXPECT_EQ(findings(std::vector<Text>(255, good)), "");
  EXPECT_EQ(findings(std::vector<Text>(256, good)), "error: there are 256 maps, more than 255\n");
}

TEST(StartRequest, AnyPayloadIsTakenApartWithoutHarm) {
  for (const Text& payload :
       {Text(), Text(u"|"), Text(u"||"), Text(u"|-"), Text(u"_"), Text(100'000, u'_'),
        Text(100'000, u'-'), Text(100'000, u'|'), Text(u"\0\xD800|\xDC00-", 5), Text(u"a_b|c")}) {
    EXPECT_TRUE(Decode(payload).HasErrors());
    EXPECT_FALSE(ExplainStartRequest(Decode(payload)).empty());
  }
  const Text good = Payload().Joined();
  for (std::size_t length = 0; length < good.find(u'|'); ++length) {
    EXPECT_TRUE(Decode(good.substr(0, length)).HasErrors()) << length;
  }
}

TEST(StartRequest, TheExplanationKeepsItsLines) {
  const Text text =
      ExplainStartRequest(Decode(Payload().Set(0, EncodeField(u"a\r\nFindings\n  none")).Joined()));
  EXPECT_NE(text.find(u"\"a??Findings?  none\""), Text::npos);
  EXPECT_NE(text.find(u"   2  Attack and Defend      Bridge <2"), Text::npos);
  EXPECT_NE(text.find(u"Friendly tags             on    bit   400 clear\n"), Text::npos);
}

}  // namespace
}  // namespace quill::host
