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
  host.plug_in.SetPrivis(nullptr, nullptr, true);
  host.kit().before = [&](const std::string&) {
    EXPECT_FALSE(host.dialog().shown());
    EXPECT_EQ(host.dialog().pointer(), ui::Pointer::kBusy);
    EXPECT_EQ(host.module.remote.PendingCommand, u"LoadForm");
    EXPECT_EQ(host.module.dialog.maps.selected.Count(), 0);
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

TEST_F(HostCalls, OpeningWithoutATargetStopsThere) {
  host.SelectMap();
  host.plug_in.LoadInterface(7, 0, TextArray({u"only one"}));
  EXPECT_EQ(host.module.dialog.Index, 7);
  EXPECT_EQ(host.module.dialog.maps.selected.Count(), 1);
  EXPECT_EQ(host.module.remote.PendingCommand, u"");
  EXPECT_TRUE(host.kit().files.empty());
  EXPECT_EQ(host.Reports(), Strings{"LoadInterface|9|Subscript out of range"});
}

TEST_F(HostCalls, OpeningWithoutATargetCreatesNoDialog) {
  host.plug_in.LoadInterface(7, 0, TextArray({}));
  EXPECT_EQ(host.module.dialog.dialog, nullptr);
}

TEST_F(HostCalls, OpeningShowsNothingWhenTheQueryCannotBeWritten) {
  host.kit().FailAt("WriteFile", RuntimeError(70, u"Permission denied"));
  bool was_shown = false;
  host.toolkit.messages.while_open = [&] {
    EXPECT_EQ(host.dialog().pointer(), ui::Pointer::kDefault);
  };
  host.Open([&] { was_shown = true; });
  EXPECT_FALSE(was_shown);
  EXPECT_EQ(host.Reports(), Strings{"LoadInterface|70|Permission denied"});
  ASSERT_EQ(host.toolkit.messages.boxes.size(), 1u);
  EXPECT_EQ(host.module.remote.PendingCommand, u"LoadForm");
}

TEST_F(HostCalls, OpeningAnOpenDialogAsksAgainAndReports) {
  host.Open([&] {
    host.plug_in.LoadInterface(4, 0, TextArray({u"", u"def"}));
    EXPECT_TRUE(host.dialog().shown());
    EXPECT_EQ(host.dialog().pointer(), ui::Pointer::kDefault);
  });
  ASSERT_EQ(host.kit().files.size(), 2u);
  EXPECT_EQ(host.kit().files[1].text, u"Plugin_kvrBHDGS_GetGameSettingsRem_def_VB6_4");
  ASSERT_EQ(host.Reports().size(), 1u);
  EXPECT_TRUE(host.Reports()[0].starts_with("LoadInterface|400|")) << host.Reports()[0];
}

TEST_F(HostCalls, HidingKeepsTheDialogForTheNextOpening) {
  host.Open([&] {
    host.plug_in.RemoteData(SettingsReply().Frame());
    host.SelectMap();
    host.plug_in.HideInterface();
    EXPECT_FALSE(host.dialog().shown());
  });
  EXPECT_EQ(host.Value(u"txtName"), "Night Server");
  const frmrcBHDGS* const first = &host.dialog();
  host.Open([&] {
    EXPECT_EQ(&host.dialog(), first);
    EXPECT_EQ(host.module.dialog.maps.selected.Count(), 0);
    EXPECT_EQ(host.dialog().lstSelMaps.Count(), 1);
  });
  EXPECT_EQ(host.Boxes(), Strings());
}

TEST_F(HostCalls, HidingCreatesADialogThatIsNotThere) {
  host.plug_in.HideInterface();
  ASSERT_NE(host.module.dialog.dialog, nullptr);
  EXPECT_FALSE(host.dialog().shown());
  EXPECT_GT(host.Option<ui::ListBox>(u"lstMax").Count(), 0);
}

TEST_F(HostCalls, ClosedFromWithinTheDisplayTheDialogIsMadeAfresh) {
  host.Open([&] {
    host.Option<ui::TextBox>(u"txtName").SetText(u"mine");
    host.Press(u"cmdCancel");
    EXPECT_EQ(host.module.dialog.dialog, nullptr);
  });
  host.Open([&] { EXPECT_EQ(host.Value(u"txtName"), ""); });
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

TEST_F(HostCalls, RepliesThatNobodyAwaitsAreDropped) {
  host.plug_in.RemoteData(u"rubbish");
  EXPECT_EQ(host.module.dialog.dialog, nullptr);
  for (TextView pending : {u"loadform", u"STARTGAME", u"LoadForm ", u"Start"}) {
    host.module.remote.PendingCommand = pending;
    host.plug_in.RemoteData(u"0");
    host.plug_in.RemoteData(SettingsReply().Frame());
  }
  EXPECT_EQ(host.module.dialog.dialog, nullptr);
  EXPECT_EQ(host.Boxes(), Strings());
}

TEST_F(HostCalls, RepliesThatAreNoFramesApplyNothingAndAreReported) {
  const std::pair<Text, const char*> cases[] = {
      {u"", "RemoteData|9|"},
      {u"rubbish", "RemoteData|9|"},
      {u"x[-]Scorvane[-]y", "RemoteData|13|Type mismatch [, ]"},
      {u"2[-]Scorvane[-]y", "RemoteData|5|not a compressed text"},
  };
  for (const auto& [data, report] : cases) {
    LoadedPlugIn fresh;
    fresh.Open([&] {
      fresh.plug_in.RemoteData(data);
      EXPECT_EQ(fresh.dialog().pointer(), ui::Pointer::kDefault);
    });
    ASSERT_EQ(fresh.Reports().size(), 1u);
    EXPECT_TRUE(fresh.Reports()[0].starts_with(report)) << fresh.Reports()[0];
    EXPECT_EQ(fresh.module.dialog.maps.server.Count(), 0);
  }
}

TEST_F(HostCalls, AFailedReplyCreatesNoDialogForItsPointer) {
  host.module.remote.PendingCommand = kLoadFormCommand;
  host.plug_in.RemoteData(u"rubbish");
  EXPECT_EQ(host.module.dialog.dialog, nullptr);
  EXPECT_EQ(host.Reports().size(), 1u);
}

TEST_F(HostCalls, ATypeMismatchTellsOfTwoFieldsOfTheReply) {
  const struct {
    std::size_t fields;
    const char* report;
  } cases[] = {{33, "RemoteData|13|Type mismatch [w14, 1]"},
               {26, "RemoteData|13|Type mismatch [w14, ]"}};
  for (const auto& c : cases) {
    LoadedPlugIn fresh;
    SettingsReply reply;
    // A fixed value that is no number is repaired before anything is applied.
    reply.Set(14, u"w14").Set(29, u"w29").Set(6, u"soon").Keep(c.fields);
    fresh.Open([&] { fresh.plug_in.RemoteData(reply.Frame()); });
    EXPECT_EQ(fresh.Reports(), Strings{c.report});
  }
}

// The box of a failed mod change is open while the host delivers another reply, which closes the
// dialog under the first one.
TEST_F(HostCalls, AReplyWithinAReplyMayCloseTheDialog) {
  host.Open([&] {
    // A game type that is no number makes the refresh of the available maps fail.
    SettingsReply reply;
    reply.Set(25, Base64("Odd <odd.bms>x"));
    bool answered = false;
    host.toolkit.messages.while_open = [&] {
      if (std::exchange(answered, true)) return;
      host.module.remote.PendingCommand = kStartGameCommand;
      host.plug_in.RemoteData(u"1");
    };
    host.plug_in.RemoteData(reply.Frame());
    EXPECT_TRUE(answered);
    EXPECT_EQ(host.module.dialog.dialog, nullptr);
  });
}

}  // namespace
}  // namespace quill
