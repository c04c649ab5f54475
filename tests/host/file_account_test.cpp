// Accounts of settings files and map lists held against a dialog that loads the same file, and what
// they say about each kind of line.
#include "host/check/file_account.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <fstream>
#include <iterator>
#include <map>
#include <random>

#include "dialog/option_table.h"
#include "host/check/account_text.h"
#include "host/kit/text_file.h"
#include "host/remote/settings_reply.h"
#include "host/story/headless_stage.h"
#include "support/runtime_error.h"
#include "ui/control.h"

namespace quill::host {
namespace {

using std::literals::string_literals::operator""s;

using Kind = AccountLine::Kind;

enum class FileKind { kSettings, kMapList };

FileAccount Account(FileKind kind, std::string_view bytes, const TrialConditions& conditions) {
  return kind == FileKind::kSettings ? AccountOfSettings(bytes, conditions)
                                     : AccountOfMapList(bytes, conditions);
}

TrialConditions Machine(std::string_view scenario) {
  return {ParseScenario(scenario), true, std::nullopt};
}

// What an operator sees who loads a file.
struct Seen {
  std::map<Text, Text> before;  // the options, as a settings file has them
  std::map<Text, Text> after;
  std::vector<Text> rotation;
  std::vector<SeenBox> boxes;
};

std::map<Text, Text> OptionsOn(Stage& stage) {
  std::map<Text, Text> options;
  for (const Option& option : Options()) {
    const TextView property = option.kind == ui::ControlKind::kCheckBox  ? u"value"
                              : option.kind == ui::ControlKind::kListBox ? u"index"
                                                                         : u"text";
    const Text key(option.key);
    options[key] = stage.Read(key, Text(property));
  }
  return options;
}

Seen Load(FileKind kind, const std::string& bytes, const TrialConditions& conditions) {
  const std::unique_ptr<Stage> stage = MakeHeadlessStage();
  const Text file = Concat({stage->HostRoot(), u"\\some file"});
  stage->PutFile(file, bytes);
  stage->PutFile(Concat({stage->HostRoot(), u"\\RCData\\x"}), "");
  Seen seen;
  stage->LoadInterface(1, {u"", u"t"}, [&] {
    stage->RemoteData(SettingsReply(conditions.machine));
    if (conditions.mod) stage->Choose(u"cboMods", *conditions.mod);
    EXPECT_TRUE(stage->TakeBoxes().empty());
    seen.before = OptionsOn(*stage);
    if (kind == FileKind::kMapList) stage->ClickTab(u"Map Settings");
    stage->AnswerFileDialog({file});
    stage->Release(kind == FileKind::kSettings ? u"cmdLoad" : u"cmdLoadMaps", Button::kLeft);
    seen.boxes = stage->TakeBoxes();
    seen.after = OptionsOn(*stage);
    const int rows = std::stoi(ToUtf8(stage->Read(u"lstSelMaps", u"count")));
    for (int row = 0; row < rows; ++row) {
      seen.rotation.push_back(stage->Read(u"lstSelMaps", Concat({u"item ", Decimal(row)})));
    }
    return false;
  });
  return seen;
}

// The account says neither more nor less than the dialog does.
void ExpectAgreement(FileKind kind, const std::string& bytes,
                     const TrialConditions& conditions = OrdinaryConditions()) {
  const Seen seen = Load(kind, bytes, conditions);
  const FileAccount account = Account(kind, bytes, conditions);

  std::map<Text, Text> options = seen.before;
  std::vector<Text> rotation;
  Text missing;
  bool has_failed = false;
  for (const AccountLine& line : account.lines) {
    if (line.kind == Kind::kOptionSet) options[line.subject] = line.value;
    if (line.kind == Kind::kMapFound) rotation.push_back(line.subject);
    if (line.kind == Kind::kMapMissing) missing += Concat({line.subject, kLineBreak});
    has_failed = has_failed || line.kind == Kind::kFailed;
  }
  EXPECT_EQ(options, seen.after);
  const bool tells_missing = kind == FileKind::kSettings && !missing.empty() && !has_failed;
  ASSERT_EQ(seen.boxes.size(), has_failed || tells_missing ? 1U : 0U);
  if (has_failed) {
    EXPECT_EQ(seen.boxes[0].caption, u"DLL Error!");
  } else {
    EXPECT_EQ(rotation, seen.rotation);
    EXPECT_EQ(account.maps, seen.rotation.size());
  }
  if (tells_missing) {
    EXPECT_TRUE(seen.boxes[0].text.ends_with(Concat({kLineBreak, kLineBreak, missing})));
  }
  EXPECT_EQ(account.mod, seen.after.at(u"cboMods"));
}

std::string Shipped(const std::string& name) {
  std::ifstream stream(QUILL_SOURCE_DIR "/scenarios/" + name, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

// The bytes with one to four small damages.
std::string Damaged(std::string bytes, std::mt19937& random) {
  const auto draw = [&](std::size_t below) {
    return std::uniform_int_distribution<std::size_t>(0, below - 1)(random);
  };
  static const std::vector<std::string> kPieces = {
      "[-]",      "\r\n",   "\n", "\r",          "=",         "[Settings]\r\n",
      "\0",       "\xFF",   "-1", "9999999999",  ".",         "Map=0[-]0[-]DMK_01A.BMS\r\n",
      "cboMods=", "lstMax", " ",  "chkLoop=2\n", "[Other]\n", "Map7=0[-]true[-]DMK_01A.BMS\r\n"};
  for (std::size_t damages = 1 + draw(4); damages > 0 && !bytes.empty(); --damages) {
    const std::size_t at = draw(bytes.size());
    switch (draw(4)) {
      case 0:
        bytes[at] = static_cast<char>(draw(256));
        break;
      case 1:
        bytes.erase(at, 1 + draw(20));
        break;
      case 2:
        bytes.insert(at, kPieces[draw(kPieces.size())]);
        break;
      default:
        bytes.insert(at, bytes.substr(draw(bytes.size()), 60));
    }
  }
  return bytes;
}

std::string KeyForEveryControl() {
  std::string text = "[Settings]\r\n";
  for (const TextView name :
       {u"frmrcBHDGS", u"tsMain", u"fmeServer", u"Frame3", u"txtGametype", u"lstAvlMaps",
        u"lblMapCnt", u"cmdRandomize", u"Picture1", u"cdSettings", u"cmdStart", u"cmdStartImg"}) {
    text += ToUtf8(name) + "=0\r\n";
  }
  for (const Option& option : Options()) text += ToUtf8(option.key) + ".Value=1\r\n";
  return text;
}

TEST(FileAccount, AgreesWithTheDialogOnGoodFiles) {
  const TrialConditions own =
      Machine("[Mods]\nNone\nMine\n[Maps]\n6: Bridge <XAD.BMS>\n0: Hill <XK.BMS>\n");
  TrialConditions chosen = OrdinaryConditions();
  chosen.mod = u"Team Sabre";
  for (const TrialConditions& conditions : {OrdinaryConditions(), own, chosen}) {
    ExpectAgreement(FileKind::kSettings, Shipped("quick-start.hsf"), conditions);
    ExpectAgreement(FileKind::kSettings,
                    "[settings]\nMap0=6[-]1[-]XAD.BMS\nMap1=0[-]true[-] XK.BMS \n"
                    "cboMods=Mine\nMap2=0[-]0[-]x[-]DMR_01A.BMS\nMap3=0[-]0[-]DMK_01A.BMS",
                    conditions);
    ExpectAgreement(FileKind::kMapList, Shipped("quick-start.mpl"), conditions);
    ExpectAgreement(FileKind::kMapList,
                    "6[-]1[-]XAD.BMS\r0[-]2[-]XK.BMS\r\n0[-]0[-]DMR_01A.BMS\r\r1[-]1[-]XK.BMS",
                    conditions);
  }
}

TEST(FileAccount, AgreesWithTheDialogOnDamagedAndHostileFiles) {
  const std::vector<std::string> files = {
      "",
      "rubbish",
      "[Settings]",
      "[Settings]\ntxtName=Alone\n",
      "[Settings]\nlstMax=50\ntxtName=Late\nMap0=0[-]0[-]DMK_01A.BMS\n",
      "[Settings]\ntxtName=x\nlstMax=-2\n",
      "[Settings]\nchkLoop=3\ntxtName=x\n",
      "[Settings]\nchkLoop=1.5\nlstMax= 4 \nlstTime=1e1\n",
      "[Settings]\nMap0=0[-]0\nMap1=0[-]0[-]DMK_01A.BMS\n",
      "[Settings]\nMap0=0[-]maybe[-]DMK_01A.BMS\ntxtName=x\n",
      "[Settings]\nMapless\nMap\n",
      "[Other]\ntxtName=x\n[Settings]\nno=1\n=2\n[Settings]\ntxtName=y\n",
      "[Settings]\ntxtName=" + std::string(100'000, 'x') + "\ntxtCountry=\x1B[31m\n",
      "[Settings]\ntxtName=\0\0\nlstMax=\0"
      "1\n"s,
      EncodeTextFile(u"[Settings]\r\ntxtName=\u00C4\xD800\r\nlstMax=3\r\n",
                     TextEncoding::kUtf16WithMark),
      KeyForEveryControl(),
      "0[-]0[-]DMK_01A.BMS\n0[-]0[-]DMM_01A.BMS\n",
      "[-][-]DMK_01A.BMS\r\n0[-]0[-]DMK_01A.BMS\r\n",
      "0[-]0[-]DMK_01A.BMS\r\n0[-]x[-]DMK_01A.BMS\r\nmore\r\n\r\n",
      "a[-]0[-]DMK_01A.BMS\r\n00[-]0[-]DMK_01A.BMS\r\n0[-] 0 [-]DMK_01A.BMS\r\n",
      "\xFF\xFE"
      "0\0[\0-\0]\0"
      "0\0[\0-\0]\0X\0"s,
  };
  for (std::size_t at = 0; at < files.size(); ++at) {
    SCOPED_TRACE(at);
    ExpectAgreement(FileKind::kSettings, files[at]);
    ExpectAgreement(FileKind::kMapList, files[at]);
  }
}

TEST(FileAccount, AgreesWithTheDialogWhateverIsDamaged) {
  constexpr unsigned kRounds = 60;
  const std::string settings = Shipped("quick-start.hsf");
  const std::string map_list = Shipped("quick-start.mpl");
  std::size_t failed = 0;
  for (unsigned round = 0; round < kRounds; ++round) {
    SCOPED_TRACE(round);
    std::mt19937 random(round);
    const std::string damaged = Damaged(settings, random);
    ExpectAgreement(FileKind::kSettings, damaged);
    ExpectAgreement(FileKind::kMapList, Damaged(map_list, random));
    const FileAccount account = AccountOfSettings(damaged, OrdinaryConditions());
    failed += std::any_of(account.lines.begin(), account.lines.end(),
                          [](const AccountLine& line) { return line.kind == Kind::kFailed; });
  }
  EXPECT_GT(failed, 0U);
  EXPECT_LT(failed, kRounds);
}

std::string Told(FileKind kind, std::string_view bytes,
                 const TrialConditions& conditions = OrdinaryConditions()) {
  const FileAccount account = Account(kind, bytes, conditions);
  std::string told;
  for (const AccountLine& line : account.lines) {
    told += std::to_string(line.line) + " " + ToUtf8(AccountLineText(line)) + "\n";
  }
  return told + ToUtf8(AccountSummary(account)) + "\n";
}

bool Has(const std::string& text, std::string_view part) {
  return text.find(part) != std::string::npos;
}

TEST(FileAccount, TellsWhatEachEntryOfASettingsFileDoes) {
  const std::string told = Told(FileKind::kSettings,
                                "txtName=Outside\n[Settings]\n; none\nMap0=0[-]0[-]DMR_01A.BMS\n"
                                "lstMax=31\nlstMax.ListIndex=-1\ntxtCountry=Germany\n"
                                "txtGametype=x\nlblMapCnt=x\nnoSuch=1\ncboMods=Third\n"
                                "cboMods=Team Sabre\nMap1=0[-]0[-]DMR_01A.BMS\nlstDelay=4\n"
                                "txtRed=a\ntxtBlue=b\n[Rest]\nx=y\n");
  EXPECT_TRUE(
      told.starts_with("1 LEFT OUT \"txtName=Outside\": it is not in the section [Settings]\n"
                       "4 MISSING map \"DMR_01A.BMS\": it comes with Team Sabre only\n"
                       "5 sets lstMax to 31, that is \"32\"\n"
                       "6 sets lstMax to -1, that is \"none chosen\"\n"
                       "6 lstMax was set in line 5 already\n"
                       "7 sets txtCountry to \"Germany\"\n"
                       "7 this is longer than the 2 characters that can be typed\n"
                       "8 sets txtGametype, which is no option, to \"x\"\n"
                       "9 LEFT OUT \"lblMapCnt=x\": a Label takes no value\n"
                       "10 LEFT OUT \"noSuch=1\": there is no option of that name\n"
                       "11 LEFT OUT \"cboMods=Third\": the list has no such item, \"None\" stays\n"
                       "12 sets cboMods to \"Team Sabre\"\n"
                       "12 maps are looked up in the Team Sabre catalogue from here on\n"
                       "13 selects Crude City Conflict <DMR_01A.BMS> (Deathmatch)\n"
                       "14 FAILS at \"lstDelay=4\": Invalid property value (error 380)\n"
                       "15 LEFT OUT what follows (2 lines): loading has ended before\n"
                       "18 LEFT OUT \"x=y\": it is not in the section [Settings]\n"
                       "0 these options stay as they are: txtMessage, txtName, "))
      << told;
  EXPECT_TRUE(
      told.ends_with("3 options set, 1 map selected from the Team Sabre catalogue "
                     "(mod \"Team Sabre\"), 9 left out\n"))
      << told;

  EXPECT_TRUE(Has(Told(FileKind::kSettings, "[Settings]\ntxtName=Alone\n"),
                  "2 LEFT OUT \"txtName=Alone\": a single entry is not read\n"));
  EXPECT_TRUE(
      Has(Told(FileKind::kSettings, "[Settings]\nchkLoop=2\nchkTeam=2\nchkClays=2\nchkNova=2\n"),
          "2 sets chkLoop to 2, that is \"greyed, counts as on\"\n"
          "3 sets chkTeam to 2, that is \"greyed, counts as on\"\n"
          "4 sets chkClays to 2, that is \"greyed, counts as off\"\n"
          "5 sets chkNova to 2, that is \"greyed, sent as 2\"\n"));
  EXPECT_TRUE(Has(Told(FileKind::kSettings, ""),
                  "0 LEFT OUT \"everything\": there is no section [Settings]\n"));
}

TEST(FileAccount, TellsWhyAMapIsNotFound) {
  constexpr std::string_view kLines =
      "0[-]0[-]DMK_01A.BMS\r\n"
      "\r\n"
      "nothing\r\n"
      "0[-]0[-]a[-]b\r\n"
      "1[-]0[-]DMK_01A.BMS\r\n"
      "0[-]0[-]dmk_01a.bms\r\n"
      "0[-]0[-]DMR_01A.BMS\r\n"
      "0[-]0[-]NONE.BMS\r\n"
      "0[-]1[-]XK.BMS\r\n"
      "a\nb\r\n";
  EXPECT_EQ(Told(FileKind::kMapList, kLines),
            "1 selects Road Rage <DMK_01A.BMS> (Deathmatch)\n"
            "3 LEFT OUT \"nothing\": it names no map\n"
            "4 LEFT OUT \"0[-]0[-]a[-]b\": it has 4 fields instead of 3\n"
            "5 MISSING map \"DMK_01A.BMS\": it is a map of the game type 0 (Deathmatch)\n"
            "6 MISSING map \"dmk_01a.bms\": its name is written DMK_01A.BMS\n"
            "7 MISSING map \"DMR_01A.BMS\": it comes with Team Sabre only\n"
            "8 MISSING map \"NONE.BMS\": the game has no such map\n"
            "9 MISSING map \"XK.BMS\": it is one of a machine's own maps, which only a scenario "
            "tells\n"
            "10 LEFT OUT \"a\xEF\xBF\xBD"
            "b\": a line feed alone does not end a line\n"
            "1 map selected from the standard catalogue (mod \"None\"), 8 left out\n");
  TrialConditions machine = Machine("[Mods]\nTeam Sabre\n[Maps]\n0: Hill <XK.BMS>\n");
  const std::string told = Told(FileKind::kMapList, kLines, machine);
  EXPECT_TRUE(Has(told, "9 selects Hill <XK.BMS> (Deathmatch, the machine's own)\n"));
  EXPECT_TRUE(Has(told, "7 selects Crude City Conflict <DMR_01A.BMS> (Deathmatch)\n"));
  EXPECT_EQ(Told(FileKind::kMapList, "00[-]0[-]DMK_01A.BMS\r00[-]1[-]XK.BMS", machine),
            "1 MISSING map \"DMK_01A.BMS\": its game type is written 0\n"
            "2 MISSING map \"XK.BMS\": its game type is written 0\n"
            "0 maps selected from the Team Sabre catalogue (mod \"Team Sabre\"), 2 left out\n");
  machine.machine.maps.clear();
  EXPECT_TRUE(Has(Told(FileKind::kMapList, kLines, machine),
                  "9 MISSING map \"XK.BMS\": the machine has no such map of that game type\n"));
}

TEST(FileAccount, NothingFromAFileReachesATerminalAsACommand) {
  const std::string told = Told(
      FileKind::kSettings,
      "[Settings]\ntxtName=\x1B[2J\xC2\x9B\xE2\x80\xAE\nno\x1B[1m=1\nMap0=0[-]0[-]\x1B]0;x\x07\n"
      "x=" +
          std::string(5'000, 'y') + "\n");
  EXPECT_FALSE(Has(told, "\x1B"));
  EXPECT_FALSE(Has(told, "\xC2\x9B"));
  EXPECT_FALSE(Has(told, "\xE2\x80\xAE"));
  EXPECT_FALSE(Has(told, std::string(101, 'y')));
}

TEST(FileAccount, LongFilesTakeLinearTime) {
  const auto seconds = [](FileKind kind, std::string text, const std::string& line, int lines) {
    for (int at = 0; at < lines; ++at) text += line;
    const auto begin = std::chrono::steady_clock::now();
    const FileAccount account = Account(kind, text, OrdinaryConditions());
    EXPECT_EQ(account.maps, static_cast<std::size_t>(lines));
    EXPECT_TRUE(Has(ToUtf8(AccountLineText(account.lines.back())) +
                        ToUtf8(AccountLineText(account.lines.at(account.lines.size() - 2))),
                    "shorter than 255"));
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
  };
  const std::string map = "0[-]0[-]DMK_01A.BMS\r\n";
  EXPECT_LT(seconds(FileKind::kMapList, "", map, 20'000), 60);
  EXPECT_LT(seconds(FileKind::kSettings, "[Settings]\r\n", "Map=" + map, 20'000), 60);
}

TEST(FileAccount, AMachineWhoseReplyIsRefusedIsNoPlaceToLoad) {
  const TrialConditions bare = Machine("");
  EXPECT_THROW((void)AccountOfSettings("", bare), RuntimeError);
  TrialConditions other = OrdinaryConditions();
  other.mod = u"Third";
  EXPECT_THROW((void)AccountOfMapList("", other), RuntimeError);
}

}  // namespace
}  // namespace quill::host
