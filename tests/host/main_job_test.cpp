// The whole job on the headless layer: plug-in, relay and remote machine against each other.
#include "host/cli/main_job.h"

#include <gtest/gtest.h>

#include "headless/memory_file_system.h"
#include "host/kit/memory_storage.h"
#include "host/story/headless_stage.h"

namespace quill::host {
namespace {

// Ends every command at once.
class InstantLauncher final : public CommandLauncher {
 public:
  explicit InstantLauncher(bool ends_well) : ends_well_(ends_well) {}
  std::unique_ptr<RunningCommand> Launch(const std::string&) override {
    struct Ended final : RunningCommand {
      explicit Ended(bool well) : ends_well(well) {}
      std::optional<bool> Outcome() override { return ends_well; }
      bool ends_well;
    };
    return std::make_unique<Ended>(ends_well_);
  }

 private:
  bool ends_well_;
};

struct Played {
  bool is_started = false;
  std::string record;  // empty: none
  std::string told;
};

Played Play(std::string_view scenario_text, bool command_ends_well = true) {
  const Scenario scenario = ParseScenario(scenario_text);
  const std::unique_ptr<Stage> stage = MakeHeadlessStage();
  const Text root = stage->HostRoot();
  const Text record_path = Concat({root, kStartRecordPath});
  headless::MemoryFileSystem files(root);
  files.MakeFolders(Concat({root, u"\\RCData"}));
  MemoryStorage results(files);
  results.Replace(record_path, "the record of an earlier job");
  InstantLauncher launcher(command_ends_well);
  Played played;
  MainJob job(scenario, *stage, results, launcher, "record",
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

TEST(MainJob, FixedValuesRuleWhereTheOperatorMayNotChange) {
  const std::string withheld = std::string(kMachine) +
                               "[Fixed Values]\nMax Players = 8\nMod = exp1\nSession Type = 1\n"
                               "[Operator]\nChange GS Session Type = 1\n";
  const Played played = Play(withheld);
  EXPECT_TRUE(played.is_started) << played.told;
  EXPECT_TRUE(Has(played.told, "cannot choose a mod"));
  EXPECT_TRUE(Has(played.record, "Session type          LAN IP"));
  EXPECT_TRUE(Has(played.record, "Max players           8 "));
  EXPECT_TRUE(Has(played.record, "\"Team Sabre\""));
}

TEST(MainJob, AFailedStartIsShownAndKeepsItsRecord) {
  const Played failed = Play(std::string(kMachine) + "[Start]\nAction = fail\n");
  EXPECT_FALSE(failed.is_started);
  EXPECT_TRUE(Has(failed.told, "box: [Failed!] Failed to initialize game process!"));
  EXPECT_FALSE(failed.record.empty());
  const std::string run = std::string(kMachine) + "[Start]\nAction = run\nCommand = go\n";
  EXPECT_TRUE(Play(run, true).is_started);
  EXPECT_FALSE(Play(run, false).is_started);
}

TEST(MainJob, TheJobEndsWhateverTheMachineDoes) {
  const Played never = Play(std::string(kMachine) + "[Start]\nAction = never answer\n");
  EXPECT_FALSE(never.is_started);
  EXPECT_TRUE(Has(never.told, "presses Cancel"));
  const Played rubbish =
      Play(std::string(kMachine) + "[Start]\nAction = answer rubbish\nText = what?\n");
  EXPECT_FALSE(rubbish.is_started);
  EXPECT_TRUE(Has(rubbish.told, "box: [DLL Error!]")) << rubbish.told;
  EXPECT_TRUE(Has(rubbish.told, "log: ")) << rubbish.told;

  // A reply that fails half-way, and one without any mod: the operator sees it and still ends.
  const Played broken = Play(std::string(kMachine) + "[Raw Fields]\n5 = 60\n");
  EXPECT_TRUE(Has(broken.told, "box: [DLL Error!]")) << broken.told;
  const Played bare = Play("");
  EXPECT_TRUE(Has(bare.told, "box: [DLL Error!]")) << bare.told;
  EXPECT_FALSE(bare.is_started);
  EXPECT_EQ(bare.record, "");
}

}  // namespace
}  // namespace quill::host
