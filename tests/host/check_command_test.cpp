// "quillhost check" and "quillhost run --settings": what they print and with which code they end.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "host/cli/command_line.h"
#include "host/story/headless_stage.h"

namespace quill::host {
namespace {

namespace fs = std::filesystem;

class CheckCommand : public testing::Test {
 protected:
  CheckCommand() { fs::create_directories(folder_); }
  ~CheckCommand() override {
    std::error_code error;
    fs::remove_all(folder_, error);
  }

  int Call(const std::vector<Text>& words) {
    output_.str("");
    errors_.str("");
    Console console(output_, errors_);
    return RunCommandLine(words, {MakeHeadlessStage}, console);
  }
  Text File(const std::string& name, const std::string& bytes) {
    const fs::path path = folder_ / name;
    std::ofstream(path, std::ios::binary) << bytes;
    return FromUtf8(path.string());
  }
  [[nodiscard]] bool Printed(std::string_view part) const {
    return output_.str().find(part) != std::string::npos;
  }

  const fs::path folder_ =
      fs::path(QUILL_BINARY_DIR) /
      (std::string("check-") + testing::UnitTest::GetInstance()->current_test_info()->name());
  std::ostringstream output_;
  std::ostringstream errors_;
};

const Text kSettings = FromUtf8(QUILL_SOURCE_DIR "/scenarios/quick-start.hsf");
const Text kMapList = FromUtf8(QUILL_SOURCE_DIR "/scenarios/quick-start.mpl");
const Text kScenario = FromUtf8(QUILL_SOURCE_DIR "/scenarios/quick-start.scenario");

TEST_F(CheckCommand, TheShippedFilesLoadWhole) {
  EXPECT_EQ(Call({u"check", kSettings, kMapList}), kExitGood) << output_.str() << errors_.str();
  EXPECT_EQ(Call({u"check", u"--scenario", kScenario, u"--mod", u"team sabre", kMapList}),
            kExitGood);
  EXPECT_EQ(Call({u"check", u"--scenario", kScenario, kSettings}), kExitGood) << output_.str();
  EXPECT_TRUE(
      output_.str().ends_with(ToUtf8(kSettings) +
                              ": 32 options set, 7 maps selected from the Team Sabre catalogue "
                              "(mod \"Team Sabre\"), nothing left out\n"));
}

TEST_F(CheckCommand, WhatWouldBeLeftOutIsOneLineAndExitCodeOne) {
  const std::vector<std::pair<std::string, std::string>> files = {
      {"map.hsf", "[Settings]\r\ntxtName=x\r\nMap0=0[-]0[-]NONE.BMS\r\n"},
      {"key.hsf", "[Settings]\r\ntxtName=x\r\nnoSuch=1\r\n"},
      {"position.hsf", "[Settings]\r\ntxtName=x\r\nlstMax=50\r\n"},
      {"empty.hsf", ""},
      {"line.mpl", "0[-]0\r\n"},
      {"UPPER.MPL", "0[-]0[-]NONE.BMS\r\n"},
      {"flag.mpl", "0[-]?[-]DMK_01A.BMS\r\n"},
  };
  for (const auto& [name, bytes] : files) {
    // A good file behind it does not make it good.
    EXPECT_EQ(Call({u"check", File(name, bytes), kMapList}), kExitBad) << name << output_.str();
    EXPECT_TRUE(Printed(name + "\": ") || Printed(name + ":")) << output_.str();
    EXPECT_TRUE(Printed(", 1 left out\n")) << name << output_.str();
    EXPECT_EQ(errors_.str(), "");
  }
  EXPECT_EQ(Call({u"check", File("blank.mpl", "\r\n\r\n")}), kExitGood);
}

TEST_F(CheckCommand, WrongArgumentsAreExitCodeTwo) {
  const Text bad_machine = File("bad.scenario", "[Mods]\nNone\n[Raw Fields]\n5 = 60\n");
  const std::vector<std::vector<Text>> wrong = {
      {u"check"},
      {u"check", u"/no/such/file.hsf"},
      {u"check", kMapList, File("file.txt", "")},
      {u"check", FromUtf8(QUILL_SOURCE_DIR)},
      {u"check", u"--mod", u"Third", kMapList},
      {u"check", u"--scenario", u"/no/such/file", kMapList},
      {u"check", u"--scenario", bad_machine, kMapList},
      {u"run", u"--settings", u"/no/such/file.hsf", kScenario},
  };
  for (const std::vector<Text>& words : wrong) {
    EXPECT_EQ(Call(words), kExitUsage) << ToUtf8(words.back());
    EXPECT_EQ(output_.str(), "");
    EXPECT_TRUE(errors_.str().starts_with("quillhost: ")) << errors_.str();
  }
}

TEST_F(CheckCommand, AJobCanStartFromASettingsFile) {
  const Text results = FromUtf8((folder_ / "run").string());
  EXPECT_EQ(Call({u"run", u"--settings", kSettings, u"--folder", results, kScenario}), kExitGood)
      << output_.str() << errors_.str();
  std::ifstream stream(folder_ / "run" / "start-record.txt");
  const std::string record((std::istreambuf_iterator<char>(stream)),
                           std::istreambuf_iterator<char>());
  stream.close();  // Windows replaces no file that is open
  for (const std::string_view part : {"Team Sabre", "SDR_03B.BMS", "blue-team", "7 maps"}) {
    EXPECT_TRUE(record.find(part) != std::string::npos || Printed(part)) << part << record;
  }
  EXPECT_FALSE(Printed("chooses the mod"));
  EXPECT_FALSE(Printed("Map Settings"));

  const Text partly = File("partly.hsf",
                           "[Settings]\ntxtName=\nMap0=0[-]0[-]NONE.BMS\n"
                           "Map1=0[-]0[-]DMK_01A.BMS\n");
  EXPECT_EQ(Call({u"run", u"--settings", partly, u"--folder", results, kScenario}), kExitGood);
  EXPECT_TRUE(Printed("do not appear to exist"));
  EXPECT_TRUE(Printed("types a server name"));
}

TEST_F(CheckCommand, NoGameIsStartedWithSettingsThatFail) {
  const Text bad = File("bad.hsf", "[Settings]\nMap0=0[-]0[-]DMK_01A.BMS\nlstMax=50\n");
  EXPECT_EQ(Call({u"run", u"--settings", bad, u"--folder", FromUtf8((folder_ / "r").string()),
                  kScenario}),
            kExitBad);
  EXPECT_TRUE(Printed("box: [DLL Error!]")) << output_.str();
  EXPECT_TRUE(Printed("Start record: none"));
  EXPECT_FALSE(Printed("presses Start Game"));
  const Text empty = File("empty.hsf", "");
  EXPECT_EQ(Call({u"run", u"--settings", empty, u"--folder", FromUtf8((folder_ / "r").string()),
                  kScenario}),
            kExitBad);
  EXPECT_TRUE(Printed("presses Start Game"));
  EXPECT_TRUE(Printed("Start record: none"));
}

}  // namespace
}  // namespace quill::host
