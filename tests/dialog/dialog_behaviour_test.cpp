// What the dialog does by itself: load, tabs, spin lists, mods, buttons, unload.
#include <gtest/gtest.h>

#include <algorithm>

#include "dialog/dialog_buttons.h"
#include "dialog/option_table.h"
#include "tests/dialog/dialog_bench.h"

namespace quill {
namespace {

constexpr TextView kReleased = u"C:\\Host\\imgs\\butup.gif";
constexpr TextView kPressed = u"C:\\Host\\imgs\\butdown.gif";

TEST(DialogLoad, HooksTheTabsThenBuildsAllFacesThenAllCaptions) {
  DialogBench bench;
  const auto dialog = TakeDialog(bench.context);
  std::vector<Text> built;
  for (const auto& control : dialog->controls()) {
    if (control->name().starts_with(u"cmd") && control->name() != u"cmdRandomize") {
      built.push_back(control->name());
    }
  }
  std::vector<Text> expected;
  for (const TextView suffix : {TextView(u"Img"), TextView(u"")}) {
    for (const TextView name : {u"cmdStart", u"cmdSave", u"cmdLoad", u"cmdCancel", u"cmdLeft",
                                u"cmdRight", u"cmdLoadMaps"}) {
      expected.push_back(Concat({name, suffix}));
    }
  }
  EXPECT_EQ(built, expected);
  const Text read = Concat({u"ReadPicture ", kReleased});
  EXPECT_EQ(bench.CallsOf(read), 14);
  EXPECT_EQ(bench.toolkit.TabBackgroundOf(dialog->tsMain), &dialog->Picture1);
  EXPECT_LT(std::find(bench.calls.begin(), bench.calls.end(), u"HookTabBackground tsMain"),
            std::find(bench.calls.begin(), bench.calls.end(), read));
  EXPECT_TRUE(bench.toolkit.messages().empty());
}

// The load ends at the step that fails, and the dialog opens with what was built.
TEST(DialogLoad, StopsAtEachPictureThatIsMissing) {
  std::int32_t face_line = 0;
  for (int missing = 1; missing <= 14; ++missing) {
    DialogBench bench;
    int read = 0;
    bench.before_call = [&](TextView call) {
      if (call.starts_with(u"ReadPicture") && ++read == missing) {
        throw RuntimeError(ErrorNumber::kFileNotFound);
      }
    };
    bench.Show([&](frmrcBHDGS& dialog) {
      EXPECT_EQ(dialog.Find(u"cmdLoadMapsImg") != nullptr, missing >= 7) << missing;
      EXPECT_EQ(dialog.Find(u"cmdStart") != nullptr, missing >= 8) << missing;
      EXPECT_EQ(dialog.Get<ui::ListBox>(u"lstMax").Count(), 0);
      EXPECT_EQ(dialog.GameTypeIndex(u"Deathmatch"), kNoGameType);
    });
    ASSERT_EQ(bench.kit->log.size(), 1u) << missing;
    EXPECT_EQ(bench.kit->log[0].label, u"FormLoad_ERROR");
    EXPECT_EQ(bench.kit->log[0].number, 53);
    // The lines are those of the two statements that build faces and captions.
    if (missing == 1) face_line = bench.kit->log[0].line;
    EXPECT_EQ(bench.kit->log[0].line, face_line + (missing > 7)) << missing;
  }
}

TEST(DialogLoad, IsTheDialogThatCallsDuringItsReportGet) {
  DialogBench bench;
  bench.before_call = [](TextView call) {
    if (call.starts_with(u"ReadPicture")) throw RuntimeError(ErrorNumber::kInvalidPicture);
  };
  std::shared_ptr<frmrcBHDGS> seen;
  bench.toolkit.while_message_open = [&](const headless::ShownMessage&) {
    seen = TakeDialog(bench.context);
  };
  EXPECT_EQ(TakeDialog(bench.context), seen);
  EXPECT_EQ(bench.toolkit.messages().size(), 1u);
}

TEST(DialogTabs, ShowTheFrameOfTheChosenTabOnly) {
  DialogBench bench;
  bench.Show([&](frmrcBHDGS& dialog) {
    for (const int tab : {1, 2, 0, 1, 0}) {
      bench.calls.clear();
      bench.person.ClickTab(dialog.tsMain.captions()[static_cast<std::size_t>(tab)]);
      EXPECT_EQ(dialog.fmeServer.visible(), tab == 0);
      EXPECT_EQ(dialog.fmeMap.visible(), tab == 1);
      EXPECT_EQ(dialog.fmeMisc.visible(), tab == 2);
      EXPECT_EQ(bench.calls,
                (std::vector<Text>{u"Sync fmeServer", u"Sync fmeMap", u"Sync fmeMisc"}));
    }
  });
}

TEST(DialogSpinLists, ChooseTheItemScrolledIntoView) {
  DialogBench bench;
  bench.Show([&](frmrcBHDGS& dialog) {
    int lists = 0;
    for (const Option& option : Options()) {
      if (option.kind != ui::ControlKind::kListBox) continue;
      ++lists;
      auto& list = dialog.Get<ui::ListBox>(option.key);
      bench.person.ScrollBy(option.key, 1);
      EXPECT_EQ(list.ListIndex(), 1) << ToUtf8(option.key);
    }
    EXPECT_EQ(lists, 8);
    auto& players = dialog.Get<ui::ListBox>(u"lstMax");
    bench.person.ScrollTo(u"lstMax", 3);
    EXPECT_EQ(players.Item(players.ListIndex()), u"4");
    bench.person.ScrollTo(u"lstMax", 1000);
    EXPECT_EQ(players.Item(players.ListIndex()), u"50");
  });
}

TEST(DialogMods, RebuildTheCatalogueAndTheAvailableMaps) {
  DialogBench bench;
  bench.Show([&](frmrcBHDGS& dialog) {
    const struct {
      TextView mod;
      int total;
      int deathmatch;
    } kMods[] = {{u"None", 117, 9},
                 {u"Team Sabre", 185, 14},
                 {u"none", 185, 14},
                 {u"", 185, 14},
                 {u"None", 117, 9}};
    for (const auto& [mod, total, deathmatch] : kMods) {
      bench.PickMod(mod);
      EXPECT_EQ(bench.context.maps.catalogue.Count(), total);
      EXPECT_EQ(dialog.lstAvlMaps.Count(), deathmatch);
      EXPECT_EQ(dialog.lstAvlMaps.tooltip(),
                Concat({u"Maps: ", Decimal(deathmatch), u" / ", Decimal(total)}));
    }
    EXPECT_EQ(dialog.lstAvlMaps.Item(0), u"Road Rage <DMK_01A.BMS>");

    // In code, and again for the item that is chosen already.
    bench.context.maps.server.AppendEntry(u"Shadow Valley <sv.bms>0");
    dialog.Get<ui::ComboBox>(u"cboMods").SetListIndex(0);
    EXPECT_EQ(dialog.lstAvlMaps.Item(9), u"Shadow Valley <sv.bms>");
    EXPECT_EQ(dialog.lstAvlMaps.tooltip(), u"Maps: 10 / 118");

    dialog.txtGametype.SetText(u"deathmatch");
    bench.PickMod(u"None");
    EXPECT_EQ(dialog.lstAvlMaps.Count(), 0);
    EXPECT_EQ(dialog.lstAvlMaps.tooltip(), u"Maps: 0 / 118");
  });
  EXPECT_TRUE(bench.toolkit.messages().empty());
}

TEST(DialogMods, ReportServerMapsWhoseGameTypeIsNoNumber) {
  DialogBench bench;
  bench.Show([&](frmrcBHDGS&) {
    bench.context.maps.server.AppendEntry(u"Shadow Valley <sv.bms>x");
    bench.PickMod(u"None");
  });
  ASSERT_EQ(bench.kit->log.size(), 1u);
  EXPECT_EQ(bench.kit->log[0].label, u"SetMaps");
  EXPECT_EQ(bench.kit->log[0].number, 13);
  EXPECT_GT(bench.kit->log[0].line, 0);
}

class DialogButtonsTest : public ::testing::Test {
 protected:
  DialogBench bench_;
  int starts_ = 0;
  DialogButtonsTest() {
    bench_.context.start_game = [this](frmrcBHDGS&) { ++starts_; };
  }
  static TextView Face(const frmrcBHDGS& dialog, TextView name) {
    return dialog.Get<ui::Image>(name).picture()->path();
  }
};

TEST_F(DialogButtonsTest, ShowThePressOfTheLeftButtonAndActOnAnyRelease) {
  bench_.Show([&](frmrcBHDGS& dialog) {
    const ui::Bounds& caption = dialog.At(u"cmdStart").bounds();
    const ui::Bounds released = caption;
    EXPECT_EQ(released, (ui::Bounds{1515, 368, 1185, 495}));
    for (const TextView part : {u"cmdStart", u"cmdStartImg"}) {
      bench_.person.Press(part, ui::kLeftButton);
      EXPECT_EQ(Face(dialog, u"cmdStartImg"), kPressed);
      EXPECT_EQ(caption, (ui::Bounds{1535, 418, 1185, 495}));
      bench_.person.Release(part, ui::kLeftButton);
      EXPECT_EQ(Face(dialog, u"cmdStartImg"), kReleased);
      EXPECT_EQ(caption, released);
    }
    EXPECT_EQ(starts_, 2);

    bench_.calls.clear();
    for (const std::int16_t button : {ui::kRightButton, ui::kMiddleButton}) {
      bench_.person.Press(u"cmdStartImg", button);
      bench_.person.Release(u"cmdStartImg", button);
    }
    EXPECT_EQ(starts_, 4);
    EXPECT_TRUE(bench_.calls.empty());
    EXPECT_EQ(caption, released);
  });
}

TEST_F(DialogButtonsTest, ActSilentlyWhenThePicturesHaveGone) {
  bench_.Show([&](frmrcBHDGS& dialog) {
    bench_.files.RemoveFile(kPressed);
    bench_.files.SetContents(kReleased, "no picture");
    bench_.person.Press(u"cmdStart", ui::kLeftButton);
    EXPECT_EQ(Face(dialog, u"cmdStartImg"), kReleased);
    bench_.person.Release(u"cmdStart", ui::kLeftButton);
    EXPECT_EQ(Face(dialog, u"cmdStartImg"), kReleased);
  });
  EXPECT_EQ(starts_, 1);
  EXPECT_TRUE(bench_.toolkit.messages().empty());
  EXPECT_TRUE(bench_.kit->log.empty());
}

TEST_F(DialogButtonsTest, AFailureNobodyTrappedIsReportedUnderItsHandler) {
  std::int32_t raised = 0;
  bench_.context.start_game = [&](frmrcBHDGS&) {
    raised = __LINE__ + 1;
    throw RuntimeError(ErrorNumber::kOverflow);
  };
  bench_.Show([&](frmrcBHDGS&) { bench_.person.Release(u"cmdStart", ui::kLeftButton); });
  ASSERT_EQ(bench_.kit->log.size(), 1u);
  EXPECT_EQ(bench_.kit->log[0].label, u"cmdStart_MouseUp");
  EXPECT_EQ(bench_.kit->log[0].number, 6);
  EXPECT_EQ(bench_.kit->log[0].line, raised);
  EXPECT_EQ(bench_.toolkit.messages().at(0).caption, u"DLL Error!");
}

TEST(DialogUnload, RestoresThePointerThenUnhooksAndLetsTheDialogGo) {
  enum class Way { kCancel, kCancelRight, kOwnButton, kOrdered };
  for (const Way way : {Way::kCancel, Way::kCancelRight, Way::kOwnButton, Way::kOrdered}) {
    DialogBench bench;
    std::weak_ptr<frmrcBHDGS> before;
    bench.Show([&](frmrcBHDGS& dialog) {
      before = bench.context.dialog;
      dialog.Get<ui::TextBox>(u"txtName").SetText(u"changed");
      bench.calls.clear();
      switch (way) {
        case Way::kCancel:
          return bench.person.Release(u"cmdCancel", ui::kLeftButton);
        case Way::kCancelRight:
          return bench.person.Release(u"cmdCancelImg", ui::kRightButton);
        case Way::kOwnButton:
          return dialog.Happened(ui::CloseAsked{});
        case Way::kOrdered:
          return dialog.Unload();
      }
    });
    const std::vector<Text> expected = {u"SetScreenPointer default", u"UnhookTabBackground tsMain"};
    EXPECT_NE(std::search(bench.calls.begin(), bench.calls.end(), expected.begin(), expected.end()),
              bench.calls.end());
    EXPECT_EQ(bench.CallsOf(expected[1]), 1);
    EXPECT_EQ(bench.context.dialog, nullptr);
    EXPECT_TRUE(before.expired());
    EXPECT_EQ(TakeDialog(bench.context)->Get<ui::TextBox>(u"txtName").text(), u"");
    EXPECT_TRUE(bench.toolkit.messages().empty());
  }
}

TEST(DialogUnload, HidingKeepsTheDialogAndItsValues) {
  DialogBench bench;
  bench.Show([](frmrcBHDGS& dialog) {
    dialog.Get<ui::TextBox>(u"txtName").SetText(u"kept");
    dialog.Hide();
  });
  bench.Show(
      [](frmrcBHDGS& dialog) { EXPECT_EQ(dialog.Get<ui::TextBox>(u"txtName").text(), u"kept"); });
}

}  // namespace
}  // namespace quill
