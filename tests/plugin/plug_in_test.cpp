// The class from start-up to its end: what each call of the host does, in its order, also from
// within another one.
#include <gtest/gtest.h>

#include <algorithm>

#include "host/remote/wire.h"
#include "tests/doubles/plug_in_bench.h"

namespace quill {
namespace {

using Strings = PlugInBench::Strings;

constexpr const char16_t* kQueryFile = u"C:\\Host\\RCData\\reply_kvrBHDGS_GetGameSettingsRem.txt";

class PlugIn : public testing::Test, protected PlugInBench {};

TEST_F(PlugIn, FindsTheHostAndItsServicesOnce) {
  EXPECT_EQ(module.HostRoot, u"C:\\Host");
  before_create = [](TextView call) { FAIL() << ToUtf8(call); };
  const clsPlugin another(module);
  EXPECT_NE(module.memory_kit, nullptr);
  EXPECT_EQ(module.dialog, nullptr);
  EXPECT_EQ(Boxes(), Strings());
}

TEST_F(PlugIn, TakesTheRootOfADevelopmentHostFromItsOwnFolderAndMissesAPath) {
  host::HeadlessHost other;
  other.paths = headless::FixedProcessPaths(u"C:\\dev\\vb6.exe",
                                            u"D:\\Work\\dlls\\Quillstart\\Plugins\\plugins");
  other.module.SubMain();
  EXPECT_EQ(other.module.HostRoot, u"D:\\Work");

  host::HeadlessHost lost;
  lost.paths = headless::FixedProcessPaths(u"");
  lost.module.SubMain();
  ASSERT_EQ(lost.toolkit.messages().size(), 1u);
  const Text& text = lost.toolkit.messages()[0].text;
  EXPECT_NE(text.find(u"Error 9: "), Text::npos) << ToUtf8(text);
  EXPECT_NE(text.find(u"Function/Sub: SubMain"), Text::npos) << ToUtf8(text);
  EXPECT_TRUE(text.ends_with(u"Error Report Sent: Failed!")) << "there is no kit yet";
}

TEST_F(PlugIn, RunsAgainAfterTheHostWasLetGo) {
  plug_in().SetPrivis(std::make_shared<host::HostRights>(std::vector<host::Right>()), nullptr,
                      true);
  Open();
  ASSERT_NE(module.dialog, nullptr);
  const std::weak_ptr<HostCollection> rights = module.NameCol;
  module.ReleaseHost();
  EXPECT_TRUE(rights.expired());
  EXPECT_EQ(module.memory_kit, nullptr);
  EXPECT_EQ(module.dialog, nullptr);
  EXPECT_EQ(module.file_kit, nullptr);
  EXPECT_EQ(module.PendingCommand, u"LoadForm");

  const clsPlugin later(module);
  EXPECT_NE(module.memory_kit, nullptr);
  Open([&] {
    module.ReleaseHost();
    EXPECT_TRUE(dialog().shown()) << "it is let be";
  });
  EXPECT_EQ(watch.files.size(), 2u);
}

TEST_F(PlugIn, EachRightGovernsItsOption) {
  const std::pair<const char16_t*, const char16_t*> governed[] = {
      {u"Change GS Session Type", u"lstSession"},
      {u"Change GS Max Players", u"lstMax"},
      {u"Change GS Game Mod", u"cboMods"},
      {u"Change GS Windowed Mode", u"chkWindow"},
      {u"Change GS Dedicated Mode", u"chkDedi"},
      {u"Change GS Custom Skins Option", u"chkSkins"},
      {u"change gs req nova login option", u"chkNova"},
      {u"CHANGE GS GAME PORT", u"txtPort"}};
  for (const auto& [right, option] : governed) {
    const std::vector<host::Right> granted = {{right, host::Right::Form::kText, u"1"}};
    plug_in().SetPrivis(std::make_shared<host::HostRights>(granted), nullptr, false);
    for (const auto& [other_right, other] : governed) {
      EXPECT_EQ(Option(other).enabled(), other == option) << ToUtf8(right) << " " << ToUtf8(other);
    }
  }
}

TEST_F(PlugIn, OpeningAsksForTheSettingsBeforeItShows) {
  static_cast<void>(TakeDialog(module));
  Select({{u"Dune", u"dune.bms", 0, false}});
  watch.before = [&](TextView, TextView) {
    EXPECT_FALSE(dialog().shown());
    EXPECT_EQ(dialog().pointer(), ui::Pointer::kBusy);
    EXPECT_EQ(module.PendingCommand, u"LoadForm");
    EXPECT_EQ(module.maps.selected.Count(), 0);
    return true;
  };
  bool was_shown = false;
  Open([&] { was_shown = dialog().shown() && dialog().pointer() == ui::Pointer::kBusy; });
  EXPECT_TRUE(was_shown);
  EXPECT_EQ(ReadAt(kQueryFile), "Plugin_kvrBHDGS_GetGameSettingsRem_abc_VB6_3");
}

TEST_F(PlugIn, ADialogClosedWhileTheQueryIsWrittenIsNotShown) {
  watch.before = [&](TextView operation, TextView) {
    if (operation == u"WriteFile") dialog().Unload();
    return true;
  };
  Open([] { FAIL() << "it is shown"; });
  ASSERT_EQ(watch.failures.size(), 1u);
  EXPECT_EQ(watch.failures[0].label, u"LoadInterface");
  EXPECT_EQ(watch.failures[0].number, 91);
}

TEST_F(PlugIn, AFailedReplyCreatesNoDialogForItsPointer) {
  module.PendingCommand = kLoadFormCommand;
  plug_in().RemoteData(u"rubbish");
  EXPECT_EQ(module.dialog, nullptr);
  EXPECT_EQ(Failures().size(), 1u);
}

// The box of a failed mod change is open while the host delivers another reply, which closes the
// dialog under the first one.
TEST_F(PlugIn, AReplyWithinAReplyMayCloseTheDialog) {
  reply.SetRawField(25, host::EncodeField(u"Odd <odd.bms>x"));  // whose game type is no number
  Open([&] {
    bool answered = false;
    toolkit.while_message_open = [&](const auto&) {
      if (std::exchange(answered, true)) return;
      module.PendingCommand = kStartGameCommand;
      plug_in().RemoteData(u"1");
    };
    Reply();
    EXPECT_TRUE(answered);
    EXPECT_EQ(module.dialog, nullptr);
  });
}

TEST_F(PlugIn, TheDialogThatCallsDuringItsReportGetIsTheOne) {
  toolkit.before_call = [](TextView call) {
    if (call.starts_with(u"ReadPicture")) throw RuntimeError(ErrorNumber::kInvalidPicture);
  };
  std::shared_ptr<frmrcBHDGS> seen;
  toolkit.while_message_open = [&](const auto&) { seen = TakeDialog(module); };
  EXPECT_EQ(TakeDialog(module), seen);
  EXPECT_EQ(Boxes().size(), 1u);
}

TEST_F(PlugIn, AMouseTakenAwayReleasesWhatIsPressedAndActsOnNothing) {
  OpenFilled([&](frmrcBHDGS& dialog) {
    const std::string before = Value(u"chkLoop");
    for (const TextView pressed : {u"cmdStart", u"cmdStartImg", u"lblChkLoop"}) {
      person.Press(pressed, ui::kLeftButton);
      dialog.At(pressed).Happened(ui::MouseLost{});
      EXPECT_EQ(dialog.At(u"cmdStart").bounds().left, 1515) << ToUtf8(pressed);
    }
    person.Release(u"lblChkLoop", ui::kLeftButton);
    EXPECT_EQ(Value(u"chkLoop"), before);
    // Nor does a release beside the label mean it.
    ui::Control& label = dialog.At(u"lblChkLoop");
    const ui::Bounds& size = label.bounds();
    for (const auto& [x, y] : {std::pair(-1, 9), {9, -1}, {size.width, 9}, {9, size.height}}) {
      person.Press(u"lblChkLoop", ui::kLeftButton);
      label.Happened(ui::MouseReleased{{ui::kLeftButton, x, y}});
      EXPECT_EQ(Value(u"chkLoop"), before) << x << "," << y;
    }
  });
  EXPECT_EQ(Boxes(), Strings());
}

TEST_F(PlugIn, AClosingDialogRestoresThePointerThenUnhooksAndGoes) {
  std::vector<Text> calls;
  std::weak_ptr<frmrcBHDGS> closed;
  Open([&] {
    closed = module.dialog;
    toolkit.before_call = [&](TextView call) { calls.emplace_back(call); };
    person.CloseForm();
  });
  const std::vector<Text> expected = {u"SetScreenPointer default", u"UnhookTabBackground tsMain"};
  EXPECT_FALSE(std::ranges::search(calls, expected).empty());
  EXPECT_EQ(std::ranges::count(calls, expected[1]), 1);
  toolkit.RunDeferred();
  EXPECT_TRUE(closed.expired());
}

}  // namespace
}  // namespace quill
