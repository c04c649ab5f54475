// The relay and the remote machine together: requests in, replies out, whatever the scenario says.
#include "host/remote/relay.h"

#include <gtest/gtest.h>

#include <thread>

#include "headless/memory_file_system.h"
#include "host/kit/memory_storage.h"
#include "host/remote/settings_reply.h"
#include "host/remote/wire.h"

namespace quill::host {
namespace {

constexpr TextView kQueryPath = u"C:\\Host\\RCData\\reply_kvrBHDGS_GetGameSettingsRem.txt";
constexpr TextView kStartPath = u"C:\\Host\\RCData\\reply_kvrBHDGS_StartGameRem.txt";
constexpr TextView kRecordPath = u"C:\\Host\\start-record.txt";
constexpr std::string_view kQuery = "Plugin_kvrBHDGS_GetGameSettingsRem_server-1_VB6_3";

Text GoodPayload() {
  return Concat({u"_", EncodeField(u"Name"),
                 u"___1_16_0_1_25_25_10_20_20_0_0_1_1___0_0_0_1500_14863_", u"17479_",
                 EncodeField(u"None"), u"|-", EncodeField(u"Road Rage"), u"_",
                 EncodeField(u"DMK_01A.BMS"), u"_0_False"});
}

std::string StartEnvelope(TextView payload) {
  return ToUtf8(Concat({u"Plugin_kvrBHDGS_StartGameRem_server-1_VB6_3_", WriteFrame(payload)}));
}

// A command that ends when the test says so.
class ScriptedLauncher final : public CommandLauncher {
 public:
  std::unique_ptr<RunningCommand> Launch(const std::string& command) override {
    launched = command;
    return std::make_unique<Command>(*this);
  }
  std::string launched;
  std::optional<bool> outcome;

 private:
  struct Command final : RunningCommand {
    explicit Command(ScriptedLauncher& owner) : launcher(owner) {}
    std::optional<bool> Outcome() override { return launcher.outcome; }
    ScriptedLauncher& launcher;
  };
};

class RelayTest : public testing::Test {
 protected:
  RelayTest() { files_.MakeFolders(u"C:\\Host\\RCData"); }

  void Simulate(std::string_view scenario) {
    const EventSink tell = [this](const Text& event) { events_ += ToUtf8(event) + "\n"; };
    machine_.emplace(
        ParseScenario(scenario),
        RemoteMachineParts{storage_, launcher_, Text(kRecordPath), "/tmp/it's here.txt", tell,
                           SystemTime(), [this] { return now_; }});
    relay_.emplace(
        u"C:\\Host", storage_, *machine_,
        [this](const Text& reply) {
          replies_.push_back(reply);
          if (during_delivery_) during_delivery_();
        },
        tell);
  }

  // Everything that happens until nothing more does.
  void PumpAll() {
    while (relay_->Pump()) {
    }
  }

  headless::MemoryFileSystem files_;
  MemoryStorage storage_{files_};
  ScriptedLauncher launcher_;
  std::chrono::steady_clock::time_point now_{};
  std::optional<RemoteMachine> machine_;
  std::optional<Relay> relay_;
  std::vector<Text> replies_;
  std::function<void()> during_delivery_;
  std::string events_;
};

TEST_F(RelayTest, AQueryIsTakenOnceItIsWrittenAndAnsweredOnce) {
  Simulate("[Settings]\nServer Name = A_B");
  EXPECT_FALSE(relay_->Pump());
  files_.MakeEmptyFile(kQueryPath);
  EXPECT_FALSE(relay_->Pump());
  files_.SetContents(kQueryPath, kQuery);
  EXPECT_TRUE(relay_->Pump());
  EXPECT_EQ(replies_,
            std::vector<Text>{SettingsReply(ParseScenario("[Settings]\nServer Name = A_B"))});
  EXPECT_FALSE(relay_->Pump());
  EXPECT_FALSE(files_.FileExists(kQueryPath));
  EXPECT_EQ(files_.Contents(u"C:\\Host\\RCData\\sent_kvrBHDGS_GetGameSettingsRem.txt"), kQuery);
  files_.SetContents(kQueryPath, kQuery);
  PumpAll();
  EXPECT_EQ(replies_.size(), 2u);
}

TEST_F(RelayTest, AGoodStartLeavesItsRecordAndAnswersAfterTheDelay) {
  Simulate("[Mods]\nNone\n[Start]\nNumber = 4711\nDelay = 2");
  files_.SetContents(kStartPath, StartEnvelope(GoodPayload()));
  EXPECT_TRUE(relay_->Pump());
  const std::string record = files_.Contents(kRecordPath);
  for (const std::string_view part :
       {"start the game (StartGameRem)\nTarget:   server-1\nProfile:  3\n", "  24  Game port",
        "Rotation: 1 map\n   1  Deathmatch             Road Rage ", "the request is in order"}) {
    EXPECT_NE(record.find(part), std::string::npos) << part << " is missing in\n" << record;
  }
  now_ += std::chrono::milliseconds(1999);
  EXPECT_FALSE(relay_->Pump());
  now_ += std::chrono::milliseconds(1);
  EXPECT_TRUE(relay_->Pump());
  EXPECT_EQ(replies_, std::vector<Text>{u"4711"});
  EXPECT_EQ(events_.find("warning"), std::string::npos) << events_;
}

TEST_F(RelayTest, EveryOtherActionAnswersAsItSays) {
  const std::pair<std::string_view, std::vector<Text>> cases[] = {
      {"fail", {u"0"}},
      {"never answer", {}},
      {"answer rubbish\nText = not a number", {u"not a number"}}};
  for (const auto& [action, expected] : cases) {
    replies_.clear();
    Simulate("[Start]\nAction = " + std::string(action));
    files_.SetContents(kStartPath, StartEnvelope(GoodPayload()));
    PumpAll();
    EXPECT_EQ(replies_, expected) << action;
    EXPECT_FALSE(machine_->HasOutstandingReplies());
  }
}

TEST_F(RelayTest, ACommandDecidesTheAnswerWhenItEnds) {
  for (const bool ends_well : {true, false}) {
    replies_.clear();
    launcher_.outcome.reset();
    Simulate("[Start]\nAction = run\nNumber = 7\nCommand = launch {record} now");
    files_.SetContents(kStartPath, StartEnvelope(GoodPayload()));
    PumpAll();
    EXPECT_EQ(launcher_.launched, "launch " + QuotedForCommand("/tmp/it's here.txt") + " now");
    EXPECT_TRUE(replies_.empty());
    EXPECT_TRUE(machine_->HasOutstandingReplies());
    launcher_.outcome = ends_well;
    PumpAll();
    EXPECT_EQ(replies_, std::vector<Text>{ends_well ? u"7" : u"0"});
  }
}

TEST_F(RelayTest, WhatIsMalformedIsAnsweredWithZeroAndStartsNothing) {
  Text spoilt = GoodPayload();
  spoilt.replace(spoilt.find(u"_16_"), 4, u"_99_");
  std::string damaged = StartEnvelope(GoodPayload());
  damaged[damaged.size() - 9] ^= 1;
  for (const std::string& request :
       {StartEnvelope(spoilt), damaged, std::string("rubbish"), std::string("\xFF\xFE\0\xD8", 4),
        std::string(1000, '_'), StartEnvelope(u""),
        std::string("Plugin_kvrBHDGS_StartGameRem_x_VB6_3_2147483647[-]Scorvane[-]AAAA")}) {
    replies_.clear();
    events_.clear();
    Simulate("[Start]\nAction = run\nCommand = launch");
    files_.SetContents(kStartPath, request);
    PumpAll();
    EXPECT_EQ(replies_, std::vector<Text>{u"0"}) << request;
    EXPECT_NE(events_.find("error"), std::string::npos) << request;
    EXPECT_FALSE(files_.FileExists(kRecordPath));
    EXPECT_EQ(launcher_.launched, "");
  }
}

TEST_F(RelayTest, ARecordThatCannotBeKeptIsAFailedStart) {
  files_.MakeFolder(kRecordPath);
  Simulate("");
  files_.SetContents(kStartPath, StartEnvelope(GoodPayload()));
  PumpAll();
  EXPECT_EQ(replies_, std::vector<Text>{u"0"});
}

TEST_F(RelayTest, RepliesAreDeliveredOneAtATimeEvenFromWithin) {
  Simulate("[Mods]\nNone");
  int depth = 0;
  int deepest = 0;
  during_delivery_ = [&] {
    deepest = std::max(deepest, ++depth);
    files_.SetContents(kStartPath, StartEnvelope(GoodPayload()));
    if (replies_.size() == 1) {
      EXPECT_TRUE(relay_->Pump());
      EXPECT_TRUE(files_.FileExists(kRecordPath)) << "the request waits although it could be taken";
      EXPECT_FALSE(relay_->Pump());
    } else {
      storage_.Remove(kStartPath);
    }
    --depth;
  };
  files_.SetContents(kQueryPath, kQuery);
  PumpAll();
  EXPECT_EQ(deepest, 1);
  ASSERT_EQ(replies_.size(), 2u);
  EXPECT_EQ(replies_[1], u"1");
}

TEST_F(RelayTest, AFileThatCannotBeTakenIsToldOnce) {
  files_.MakeFolder(u"C:\\Host\\RCData\\sent_kvrBHDGS_GetGameSettingsRem.txt");
  files_.SetContents(kQueryPath, kQuery);
  Simulate("");
  EXPECT_TRUE(relay_->Pump());
  EXPECT_FALSE(relay_->Pump());
  EXPECT_EQ(files_.Contents(kQueryPath), kQuery);
  EXPECT_TRUE(replies_.empty());
}

TEST(SystemCommandLauncher, TellsHowACommandEnded) {
  SystemCommandLauncher launcher;
  for (const bool ends_well : {true, false}) {
    const std::unique_ptr<RunningCommand> command =
        launcher.Launch(ends_well ? "exit 0" : "exit 3");
    std::optional<bool> outcome = command->Outcome();
    for (int wait = 0; wait < 1000 && !outcome; ++wait) {
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
      outcome = command->Outcome();
    }
    EXPECT_EQ(outcome, ends_well);
  }
}

}  // namespace
}  // namespace quill::host
