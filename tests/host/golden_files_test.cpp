// What one settings file and one start payload have to be, byte for byte.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "host/remote/scenario.h"
#include "host/remote/wire.h"
#include "host/story/stage.h"

namespace quill::host {
namespace {

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

}  // namespace
}  // namespace quill::host
