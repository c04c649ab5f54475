// The command line: what it says, where it says it, and with which exit code it ends.
#include "host/cli/command_line.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "host/remote/wire.h"
#include "host/story/headless_stage.h"

namespace quill::host {
namespace {

namespace fs = std::filesystem;

struct Outcome {
  int code = 0;
  std::string output;
  std::string errors;
};

Outcome Call(const std::vector<Text>& words) {
  std::ostringstream output;
  std::ostringstream errors;
  Console console(output, errors);
  const int code = RunCommandLine(words, {MakeHeadlessStage}, console);
  return {code, output.str(), errors.str()};
}

std::ptrdiff_t Lines(const std::string& text) {
  return std::count(text.begin(), text.end(), '\n');
}

// A file with that content, removed with the object.
class TemporaryFile {
 public:
  explicit TemporaryFile(const std::string& bytes) {
    const testing::TestInfo& test = *testing::UnitTest::GetInstance()->current_test_info();
    path_ = fs::path(QUILL_BINARY_DIR) / (std::string("cli-") + test.name());
    path_ += fs::path(u8"-\u00E4");
    std::ofstream(path_, std::ios::binary) << bytes;
  }
  ~TemporaryFile() {
    std::error_code error;
    fs::remove(path_, error);
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  [[nodiscard]] Text name() const {
    const std::u8string bytes = path_.u8string();
    return FromUtf8(std::string(bytes.begin(), bytes.end()));
  }

 private:
  fs::path path_;
};

std::string StartRequestFile(TextView port) {
  const Text payload =
      Concat({u"_", EncodeField(u"G\u00E4ste"), u"___1_16_0_1_25_25_10_20_20_0_0_1_1___0_0_0_1500_",
              u"14863_", port, u"_", EncodeField(u"None"), u"|-", EncodeField(u"Own"), u"_",
              EncodeField(u"OWN.BMS"), u"_0_True"});
  return ToUtf8(Concat({u"Plugin_kvrBHDGS_StartGameRem_abc_VB6_3_", WriteFrame(payload)}));
}

TEST(CommandLine, HelpIsThereForEverything) {
  const Outcome help = Call({u"--help"});
  EXPECT_EQ(help.code, kExitGood);
  EXPECT_TRUE(help.errors.empty());
  for (const Text command : {u"run", u"story", u"decode", u"check", u"catalogue"}) {
    EXPECT_NE(help.output.find("  " + ToUtf8(command)), std::string::npos);
    const Outcome own = Call({command, u"--help"});
    EXPECT_EQ(own.code, kExitGood);
    EXPECT_TRUE(own.output.starts_with("Usage: quillhost " + ToUtf8(command)));
    EXPECT_EQ(Call({command, u"--bogus", u"-h"}).output, own.output);
  }
}

TEST(CommandLine, AWrongArgumentIsOneLineAndExitCodeTwo) {
  const std::vector<std::vector<Text>> wrong = {
      {},
      {u"walk"},
      {u"run"},
      {u"run", u"a", u"b"},
      {u"run", u"/no/such/file"},
      {u"run", FromUtf8(QUILL_SOURCE_DIR)},
      {u"run", u"--folder"},
      {u"story"},
      {u"decode"},
      {u"decode", u"/no/such/file"},
      {u"decode", u"--scenario", u"/no/such/file", u"/dev/null"},
      {u"catalogue", u"x"},
      {u"catalogue", u"--mod", u"Something"},
      {u"catalogue", u"--type", u"9"},
      {u"catalogue", u"--type=7", u"--type=7"},
      {u"catalogue", u"--colour", u"red"},
      {u"decode", u"--", u"--help"},
  };
  for (const std::vector<Text>& words : wrong) {
    const Outcome outcome = Call(words);
    std::string call = "quillhost";
    for (const Text& word : words) call += " " + ToUtf8(word);
    EXPECT_EQ(outcome.code, kExitUsage) << call;
    EXPECT_EQ(outcome.output, "") << call;
    EXPECT_EQ(Lines(outcome.errors), 1) << call << "\n" << outcome.errors;
    EXPECT_TRUE(outcome.errors.starts_with("quillhost: ")) << call;
  }
}

TEST(CommandLine, ABadScenarioIsNamedWithItsLine) {
  const TemporaryFile scenario("[Settings]\nMax Players = 99\n");
  const Outcome outcome = Call({u"run", scenario.name()});
  EXPECT_EQ(outcome.code, kExitUsage);
  EXPECT_EQ(outcome.errors,
            "quillhost: " + ToUtf8(scenario.name()) +
                ": line 2: Max Players must be a number from 1 to 50, not \"99\"\n");
}

TEST(CommandLine, TheCatalogueIsListedWholeAndInParts) {
  const Outcome all = Call({u"catalogue"});
  EXPECT_EQ(all.code, kExitGood);
  EXPECT_EQ(Lines(all.output), 186);
  EXPECT_TRUE(all.output.ends_with("\n185 maps\n"));
  EXPECT_EQ(Lines(Call({u"catalogue", u"--mod", u"none"}).output), 118);
  EXPECT_EQ(Call({u"catalogue", u"--mod=team sabre"}).output, all.output);
  const Outcome flags = Call({u"catalogue", u"--type", u"capture the flag"});
  EXPECT_EQ(Lines(flags.output), 37);
  EXPECT_EQ(Call({u"catalogue", u"--type", u"7"}).output, flags.output);
  EXPECT_NE(flags.output.find("Oil Island A"), std::string::npos);
  EXPECT_EQ(Call({u"catalogue", u"--type=2"}).output, "0 maps\n");
}

TEST(CommandLine, RequestsAreExplainedAndJudged) {
  const Outcome good = [] {
    const TemporaryFile file(StartRequestFile(u"17479"));
    return Call({u"decode", file.name()});
  }();
  EXPECT_EQ(good.code, kExitGood) << good.errors;
  for (const std::string_view part :
       {"Target:   abc\n", "\"G\xC3\xA4ste\"", "17479", "Friendly tags", "Deathmatch", "OWN.BMS",
        "the machine's own", "none: the request is in order"}) {
    EXPECT_NE(good.output.find(part), std::string::npos) << part << "\n" << good.output;
  }

  const TemporaryFile bad(StartRequestFile(u"0"));
  const Outcome judged = Call({u"decode", bad.name()});
  EXPECT_EQ(judged.code, kExitBad);
  EXPECT_NE(judged.output.find("  error: field 24 (Game port) is 0"), std::string::npos);
  const Outcome doubted =
      Call({u"decode", u"--scenario", FromUtf8(QUILL_SOURCE_DIR "/scenarios/quick-start.scenario"),
            bad.name()});
  EXPECT_NE(doubted.output.find("warning: map 1 is doubtful"), std::string::npos);
}

TEST(CommandLine, AFileThatIsNoRequestIsABadOne) {
  for (const std::string& bytes :
       {std::string(), std::string("rubbish"), std::string("\xFF\xFE\0\xD8\0", 5),
        StartRequestFile(u"1").substr(0, 80)}) {
    const TemporaryFile file(bytes);
    const Outcome outcome = Call({u"decode", file.name()});
    EXPECT_EQ(outcome.code, kExitBad);
    EXPECT_EQ(Lines(outcome.errors), 1);
  }
  const TemporaryFile query("Plugin_kvrBHDGS_GetGameSettingsRem_abc_VB6_3");
  const Outcome outcome = Call({u"decode", query.name()});
  EXPECT_EQ(outcome.code, kExitGood);
  EXPECT_EQ(outcome.output,
            "Request:  tell the game settings (GetGameSettingsRem)\nTarget:   abc\n"
            "Profile:  3\n");
}

TEST(CommandLine, StoriesAreJudged) {
  const TemporaryFile story("this is no step\n");
  const Outcome outcome = Call({u"story", story.name()});
  EXPECT_EQ(outcome.code, kExitBad);
  EXPECT_NE(outcome.output.find(ToUtf8(story.name()) + ":1: "), std::string::npos)
      << outcome.output;
  EXPECT_EQ(Call({u"story", story.name(), u"/no/such/file"}).code, kExitUsage);
}

TEST(CommandLine, TheShippedScenarioRuns) {
  const fs::path folder = fs::path(QUILL_BINARY_DIR) / "cli-run" / "new";
  fs::remove_all(folder.parent_path());
  const Outcome outcome =
      Call({u"run", FromUtf8(QUILL_SOURCE_DIR "/scenarios/quick-start.scenario"),
            Concat({u"--folder=", FromUtf8(folder.string())})});
  EXPECT_EQ(outcome.code, kExitGood) << outcome.output << outcome.errors;
  EXPECT_TRUE(outcome.output.ends_with("start-record.txt\n"));
  EXPECT_TRUE(fs::exists(folder / "start-record.txt"));
  const fs::path request = folder / "RCData" / "sent_kvrBHDGS_StartGameRem.txt";
  const Outcome decoded = Call({u"decode", FromUtf8(request.string())});
  EXPECT_EQ(decoded.code, kExitGood) << decoded.output << decoded.errors;
  EXPECT_NE(decoded.output.find("XAD_BRG2.BMS"), std::string::npos);
  fs::remove_all(folder.parent_path());
}

}  // namespace
}  // namespace quill::host
