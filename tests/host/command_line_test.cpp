// The command line: each command's exit codes, and one message of each kind.
#include "host/cli/command_line.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <sstream>

#include "host/remote/wire.h"
#include "tests/doubles/scratch_folder.h"

namespace quill::host {
namespace {

const Text kScenario = FromUtf8(QUILL_SOURCE_DIR "/scenarios/quick-start.scenario");
const Text kSettings = FromUtf8(QUILL_SOURCE_DIR "/scenarios/quick-start.hsf");
const Text kMapList = FromUtf8(QUILL_SOURCE_DIR "/scenarios/quick-start.mpl");

class CommandLine : public testing::Test {
 protected:
  // Calls it and expects that code and, in what it prints, that text.
  void Expect(int code, const std::string& part, const std::vector<Text>& words) {
    std::ostringstream output;
    std::ostringstream errors;
    Console console(output, errors);
    std::string call = "quillhost";
    for (const Text& word : words) call += " " + ToUtf8(word);
    EXPECT_EQ(RunCommandLine(words, {MakeHeadlessStage}, console), code) << call;
    const std::string& told = code == kExitUsage ? errors.str() : output.str() + errors.str();
    EXPECT_NE(told.find(part), std::string::npos) << call << "\n" << told;
    if (code == kExitUsage) {
      EXPECT_TRUE(errors.str().starts_with("quillhost: ")) << call;
      EXPECT_EQ(std::count(told.begin(), told.end(), '\n'), 1) << call << "\n" << told;
      EXPECT_EQ(output.str(), "") << call;
    }
  }
  [[nodiscard]] Text Start(TextView port) const {
    const Text payload =
        Concat({u"_", EncodeField(u"G\u00E4ste"), u"___1_16_0_1_25_25_10_20_20_0_0_1_1___0_0_0_",
                u"1500_14863_", port, u"_", EncodeField(u"None"), u"|-", EncodeField(u"Own"), u"_",
                EncodeField(u"OWN.BMS"), u"_0_True"});
    return folder_.Put(
        fs_name_,
        ToUtf8(Concat({u"Plugin_kvrBHDGS_StartGameRem_abc_VB6_3_", WriteFrame(payload)})));
  }

  const ScratchFolder folder_;
  const std::filesystem::path fs_name_ = std::filesystem::path(u8"request-\u00E4.txt");
};

TEST_F(CommandLine, WrongArgumentsAreOneLineAndExitCodeTwo) {
  const Text folder = folder_.path().u16string();
  for (const std::vector<Text>& words :
       std::vector<std::vector<Text>>{{},
                                      {u"walk"},
                                      {u"run"},
                                      {u"run", folder},
                                      {u"run", u"--folder"},
                                      {u"run", u"--settings", u"/no/such/file.hsf", kScenario},
                                      {u"story"},
                                      {u"story", u"/no/such/file"},
                                      {u"decode", u"/no/such/file"},
                                      {u"check"},
                                      {u"check", u"--mod", u"Third", kMapList},
                                      {u"catalogue", u"--type", u"9"}}) {
    Expect(kExitUsage, "", words);
  }
  Expect(kExitUsage, ": line 2: Max Players must be a number from 1 to 50, not \"99\"\n",
         {u"run", folder_.Put("bad", "[Settings]\nMax Players = 99\n")});
  Expect(kExitGood, "Usage: quillhost run", {u"run", u"--help"});
}

TEST_F(CommandLine, EachCommandTellsItsOutcomeByItsCode) {
  std::ifstream golden(QUILL_SOURCE_DIR "/tests/golden/catalogue.txt");
  Expect(kExitGood, {std::istreambuf_iterator<char>(golden), {}}, {u"catalogue"});
  Expect(kExitGood, "none: the request is in order", {u"decode", Start(u"17479")});
  Expect(kExitBad, "  error: field 24 (Game port) is 0", {u"decode", Start(u"0")});
  Expect(kExitBad, "", {u"decode", folder_.Put("r", "rubbish")});
  Expect(kExitBad, ":1: ", {u"story", folder_.Put("s.story", "this is no step\n")});
  Expect(kExitGood,
         ": 32 options set, 7 maps selected from the Team Sabre catalogue (mod \"Team Sabre\"), "
         "nothing left out\n",
         {u"check", u"--scenario", kScenario, kSettings, kMapList});
  Expect(kExitBad, "FAILS at \"lstMax=50\": Invalid property value (error 380)\n",
         {u"check", folder_.Put("a.hsf", "[Settings]\ntxtName=x\nlstMax=50\n"), kMapList});
  Expect(kExitGood, "\"greyed, counts as on\"",
         {u"check", folder_.Put("g.hsf", "[Settings]\nchkLoop=2\nchkClays=2\n")});
  Expect(kExitBad, "its game type is written 0\n",
         {u"check", folder_.Put("00.mpl", "00[-]0[-]DMK_01A.BMS\r\n")});
  Expect(kExitBad, ", 1 left out\n", {u"check", folder_.Put("A.MPL", "0[-]0[-]NONE.BMS\r\n")});
}

TEST_F(CommandLine, AJobLeavesItsRecordAndRequest) {
  const std::filesystem::path run = folder_.path() / "new" / "run";
  const Text folder = run.u16string();
  Expect(kExitGood, "start-record.txt\n", {u"run", kScenario, u"--folder", folder});
  std::ifstream stream(run / "start-record.txt");
  const std::string record{std::istreambuf_iterator<char>(stream), {}};
  stream.close();  // Windows deletes no file that somebody has open
  for (const char* part : {"\"Quick Start #1\"", "Bridge <2 ", "the request is in order"}) {
    EXPECT_NE(record.find(part), std::string::npos) << part << " is missing in\n" << record;
  }
  Expect(kExitGood, "XAD_BRG2.BMS",
         {u"decode", Concat({folder, u"/RCData/sent_kvrBHDGS_StartGameRem.txt"})});
  Expect(kExitGood, "7 maps", {u"run", u"--settings", kSettings, u"--folder", folder, kScenario});
  // Whatever the machine does, the job ends. A remote command that really runs decides by its exit
  // code.
  const struct {
    std::string start;
    int code;
    const char* told;
  } machines[] = {{"run\nCommand = exit 0", kExitGood, ""},
                  {"run\nCommand = exit 3", kExitBad, ""},
                  {"fail", kExitBad, "box: [Failed!] Failed to initialize game process!"},
                  {"never answer", kExitBad, "presses Cancel"},
                  {"answer rubbish\nText = what?", kExitBad, "box: [DLL Error!]"}};
  for (const auto& [start, code, told] : machines) {
    const std::string machine = "[Settings]\nServer Name = S\n[Mods]\nNone\n[Start]\nAction = ";
    Expect(code, told,
           {u"run", u"--folder", folder, folder_.Put("c.scenario", machine + start + "\n")});
  }
  EXPECT_TRUE(std::filesystem::exists(run / "start-record.txt"));
  Expect(kExitBad, "box: [DLL Error!]",
         {u"run", u"--folder", folder, folder_.Put("bare.scenario", "")});
  EXPECT_FALSE(std::filesystem::exists(run / "start-record.txt")) << "it is an earlier job's";
  const Text bad = folder_.Put("bad.hsf", "[Settings]\nMap0=0[-]0[-]DMK_01A.BMS\nlstMax=50\n");
  Expect(kExitBad, "Start record: none",
         {u"run", u"--settings", bad, u"--folder", folder, kScenario});
}

}  // namespace
}  // namespace quill::host
