// Opening, hiding and replying: what each call of the host does, in its order, also from within
// another one.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/doubles/loaded_plug_in.h"
#include "tests/doubles/settings_reply.h"

namespace quill {
namespace {

using Strings = std::vector<std::string>;

struct HostCalls : testing::Test {
  LoadedPlugIn host;
};

TEST_F(HostCalls, OpeningAsksForTheSettingsBeforeItShows) {
  host.SelectMap();
  bool was_shown = false;
  host.plug_in().SetPrivis(nullptr, nullptr, true);
  host.kit().before = [&](const std::string&) {
    EXPECT_FALSE(host.dialog().shown());
    EXPECT_EQ(host.dialog().pointer(), ui::Pointer::kBusy);
    EXPECT_EQ(host.module.PendingCommand, u"LoadForm");
    EXPECT_EQ(host.module.maps.selected.Count(), 0);
  };
  host.Open([&] {
    was_shown = host.dialog().shown();
    EXPECT_EQ(host.dialog().pointer(), ui::Pointer::kBusy);
  });
  EXPECT_TRUE(was_shown);
  const std::vector<RecordingFileKit::WrittenFile> expected = {
      {u"C:\\Host\\RCData\\reply_kvrBHDGS_GetGameSettingsRem.txt",
       u"Plugin_kvrBHDGS_GetGameSettingsRem_abc_VB6_3"}};
  EXPECT_EQ(host.kit().files, expected);
  EXPECT_EQ(host.Boxes(), Strings());
}

TEST_F(HostCalls, ADialogClosedWhileTheQueryIsWrittenIsNotShown) {
  bool was_shown = false;
  host.kit().before = [&](const std::string& operation) {
    if (operation == "WriteFile") host.dialog().Unload();
  };
  host.Open([&] { was_shown = true; });
  EXPECT_FALSE(was_shown);
  ASSERT_EQ(host.Reports().size(), 1u);
  EXPECT_TRUE(host.Reports()[0].starts_with("LoadInterface|91|")) << host.Reports()[0];
}

TEST_F(HostCalls, AFailedReplyCreatesNoDialogForItsPointer) {
  host.module.PendingCommand = kLoadFormCommand;
  host.plug_in().RemoteData(u"rubbish");
  EXPECT_EQ(host.module.dialog, nullptr);
  EXPECT_EQ(host.Reports().size(), 1u);
}

// The box of a failed mod change is open while the host delivers another reply, which closes the
// dialog under the first one.
TEST_F(HostCalls, AReplyWithinAReplyMayCloseTheDialog) {
  host.Open([&] {
    // A game type that is no number makes the refresh of the available maps fail.
    SettingsReply reply;
    reply.Set(25, Base64("Odd <odd.bms>x"));
    bool answered = false;
    host.toolkit.while_message_open = [&](const auto&) {
      if (std::exchange(answered, true)) return;
      host.module.PendingCommand = kStartGameCommand;
      host.plug_in().RemoteData(u"1");
    };
    host.plug_in().RemoteData(reply.Frame());
    EXPECT_TRUE(answered);
    EXPECT_EQ(host.module.dialog, nullptr);
  });
}

}  // namespace
}  // namespace quill
