// The whole job on the headless layer: plug-in, relay and remote machine against each other.
#include "host/cli/main_job.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "headless/memory_file_system.h"
#include "host/kit/file_storage.h"
#include "host/remote/scenario.h"
#include "host/remote/wire.h"

namespace quill::host {
namespace {

struct Played {
  bool is_started = false;
  std::string record;  // empty: none
  std::string told;
};

Played Play(std::string_view scenario_text) {
  const Scenario scenario = ParseScenario(scenario_text);
  const std::unique_ptr<Stage> stage = MakeHeadlessStage();
  const Text root = stage->HostRoot();
  const Text record_path = Concat({root, kStartRecordPath});
  headless::MemoryFileSystem files(root);
  files.MakeFolders(Concat({root, u"\\RCData"}));
  MemoryStorage results(files);
  results.Replace(record_path, "the record of an earlier job");
  Played played;
  MainJob job(scenario, *stage, results, u"record",
              [&](const Text& line) { played.told += ToUtf8(line) + "\n"; });
  played.is_started = job.Run();
  EXPECT_EQ(job.has_record(), results.ReadWhole(record_path).has_value());
  played.record = results.ReadWhole(record_path).value_or("");
  return played;
}

bool Has(const std::string& text, std::string_view part) {
  return text.find(part) != std::string::npos;
}

constexpr std::string_view kMachine =
    "[Settings]\nServer Name = Job\nSession Type = LAN IP\nMax Players = 40\n"
    "[Mods]\nNone\nTeam Sabre\n[Maps]\n6: Bridge <2 <XAD.BMS>\n4: Hill <XK.BMS>\n";

TEST(MainJob, WhatTheMachineTellsComesBackInItsRecord) {
  const Played played = Play(kMachine);
  EXPECT_TRUE(played.is_started) << played.told;
  for (const std::string_view part : {"\"Job\"", "LAN IP", "40", "\"Team Sabre\"", "XAD.BMS",
                                      "XK.BMS", "Bridge <2 ", "the request is in order"}) {
    EXPECT_TRUE(Has(played.record, part)) << part << " is missing in\n" << played.record;
  }
  EXPECT_FALSE(Has(played.told, "box:")) << played.told;
  EXPECT_FALSE(Has(played.told, "error")) << played.told;
}

std::string Bytes(const std::string& path) {
  std::ifstream stream(QUILL_SOURCE_DIR "/" + path, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

// Loaded into the machine's dialog, the shipped settings are saved and sent as the golden files
// say. A line break in that of the payload stands for nothing.
TEST(GoldenFiles, OneSettingsFileAndOneStartPayload) {
  const std::unique_ptr<Stage> stage = MakeHeadlessStage();
  const auto in_root = [&](TextView file) { return Concat({stage->HostRoot(), u"\\", file}); };
  stage->PutFile(in_root(u"a.hsf"), Bytes("scenarios/quick-start.hsf"));
  stage->LoadInterface(1, {u"", u"t"}, [&] {
    stage->RemoteData(SettingsReply(ParseScenario(Bytes("scenarios/quick-start.scenario"))));
    stage->AnswerFileDialog({in_root(u"a.hsf")}, false);
    stage->AnswerFileDialog({in_root(u"b.hsf")}, false);
    for (const TextView button : {u"cmdLoad", u"cmdSave", u"cmdStart"}) {
      stage->Make(u"release NAME BUTTON", {Text(button), u"left"});
    }
    return false;
  });
  EXPECT_EQ(stage->storage().ReadWhole(in_root(u"b.hsf")), Bytes("tests/golden/settings.hsf"));
  const std::string request =
      stage->storage().ReadWhole(in_root(u"RCData\\reply_kvrBHDGS_StartGameRem.txt")).value_or("");
  std::string golden = Bytes("tests/golden/start-payload.txt");
  std::erase(golden, '\n');
  EXPECT_EQ(ToUtf8(ReadFrame(ParseRequestEnvelope(FromUtf8(request)).frame)), golden);
}

TEST(MainJob, TheJobEndsWhateverTheMachineDoes) {
  const std::pair<std::string_view, std::string_view> cases[] = {
      {"[Start]\nAction = fail\n", "box: [Failed!] Failed to initialize game process!"},
      {"[Start]\nAction = never answer\n", "presses Cancel"},
      {"[Start]\nAction = answer rubbish\nText = what?\n", "box: [DLL Error!]"}};
  for (const auto& [machine, told] : cases) {
    const Played played = Play(std::string(kMachine) + std::string(machine));
    EXPECT_FALSE(played.is_started) << machine;
    EXPECT_TRUE(Has(played.told, told)) << played.told;
  }
  const Played bare = Play("");
  EXPECT_TRUE(Has(bare.told, "box: [DLL Error!]")) << bare.told;
  EXPECT_FALSE(bare.is_started);
  EXPECT_EQ(bare.record, "");
}

}  // namespace
}  // namespace quill::host
