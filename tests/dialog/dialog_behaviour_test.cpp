// What the dialog does by itself: load, tabs, spin lists, mods, buttons, unload.
#include <gtest/gtest.h>

#include <algorithm>

#include "dialog/dialog_buttons.h"
#include "dialog/option_table.h"
#include "tests/dialog/dialog_bench.h"

namespace quill {
namespace {

using Box = RecordingMessageBoxes::Box;

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
  const auto& journal = bench.toolkit.journal;
  EXPECT_LT(std::find(journal.begin(), journal.end(), "HookTabBackground"),
            std::find(journal.begin(), journal.end(), "ReadPicture"));
  EXPECT_EQ(bench.toolkit.pictures_read, std::vector<Text>(14, Text(kReleased)));
  EXPECT_TRUE(bench.toolkit.messages.boxes.empty());
}

// The load ends at the step that fails, and the dialog opens with what was built.
TEST(DialogLoad, StopsAtEachPictureThatIsMissing) {
  std::int32_t face_line = 0;
  for (int missing = 1; missing <= 14; ++missing) {
    DialogBench bench;
    int read = 0;
    bench.toolkit.before = [&](const std::string& operation) {
      if (operation == "ReadPicture" && ++read == missing) {
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
  bench.toolkit.before = [](const std::string& operation) {
    if (operation == "ReadPicture") throw RuntimeError(ErrorNumber::kInvalidPicture);
  };
  std::shared_ptr<frmrcBHDGS> seen;
  bench.toolkit.messages.while_open = [&] { seen = TakeDialog(bench.context); };
  EXPECT_EQ(TakeDialog(bench.context), seen);
  EXPECT_EQ(bench.toolkit.messages.boxes.size(), 1u);
}

TEST(DialogTabs, ShowTheFrameOfTheChosenTabOnly) {
  DialogBench bench;
  bench.Show([&](frmrcBHDGS& dialog) {
    for (const int tab : {1, 2, 0, 1, 0}) {
      bench.toolkit.synced.clear();
      dialog.tsMain.Happened(ui::TabChosen{tab});
      EXPECT_EQ(dialog.fmeServer.visible(), tab == 0);
      EXPECT_EQ(dialog.fmeMap.visible(), tab == 1);
      EXPECT_EQ(dialog.fmeMisc.visible(), tab == 2);
      std::vector<Text> told;
      for (const auto& sync : bench.toolkit.synced) {
        if (sync.changes.Has(ui::Changes::kVisible)) told.push_back(sync.control);
      }
      EXPECT_EQ(told, (std::vector<Text>{u"fmeServer", u"fmeMap", u"fmeMisc"}));
    }
  });
}

TEST(DialogSpinLists, ChooseTheItemScrolledIntoView) {
  DialogBench bench;
  bench.Show([](frmrcBHDGS& dialog) {
    int lists = 0;
    for (const Option& option : Options()) {
      if (option.kind != ui::ControlKind::kListBox) continue;
      ++lists;
      auto& list = dialog.Get<ui::ListBox>(option.key);
      list.Happened(ui::ScrolledTo{1});
      EXPECT_EQ(list.ListIndex(), 1) << ToUtf8(option.key);
    }
    EXPECT_EQ(lists, 8);
    auto& players = dialog.Get<ui::ListBox>(u"lstMax");
    players.Happened(ui::ScrolledTo{3});
    EXPECT_EQ(players.Item(players.ListIndex()), u"4");
    players.Happened(ui::ScrolledTo{1000});
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
      DialogBench::PickMod(dialog, mod);
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
    DialogBench::PickMod(dialog, u"None");
    EXPECT_EQ(dialog.lstAvlMaps.Count(), 0);
    EXPECT_EQ(dialog.lstAvlMaps.tooltip(), u"Maps: 0 / 118");
  });
  EXPECT_TRUE(bench.toolkit.messages.boxes.empty());
}

TEST(DialogMods, ReportServerMapsWhoseGameTypeIsNoNumber) {
  DialogBench bench;
  bench.Show([&](frmrcBHDGS& dialog) {
    bench.context.maps.server.AppendEntry(u"Shadow Valley <sv.bms>x");
    DialogBench::PickMod(dialog, u"None");
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
      DialogBench::Press(dialog, part);
      EXPECT_EQ(Face(dialog, u"cmdStartImg"), kPressed);
      EXPECT_EQ(caption, (ui::Bounds{1535, 418, 1185, 495}));
      DialogBench::Release(dialog, part);
      EXPECT_EQ(Face(dialog, u"cmdStartImg"), kReleased);
      EXPECT_EQ(caption, released);
    }
    EXPECT_EQ(starts_, 2);

    bench_.toolkit.pictures_read.clear();
    for (const std::int16_t button : {ui::kRightButton, ui::kMiddleButton}) {
      DialogBench::Press(dialog, u"cmdStartImg", button);
      DialogBench::Release(dialog, u"cmdStartImg", button);
    }
    EXPECT_EQ(starts_, 4);
    EXPECT_TRUE(bench_.toolkit.pictures_read.empty());
    EXPECT_EQ(caption, released);
  });
}

TEST_F(DialogButtonsTest, ActSilentlyWhenThePicturesHaveGone) {
  bench_.Show([&](frmrcBHDGS& dialog) {
    bench_.toolkit.before = [](const std::string& operation) {
      if (operation == "ReadPicture") throw RuntimeError(ErrorNumber::kFileNotFound);
    };
    DialogBench::Press(dialog, u"cmdStart");
    EXPECT_EQ(Face(dialog, u"cmdStartImg"), kReleased);
    DialogBench::Release(dialog, u"cmdStart");
    EXPECT_EQ(Face(dialog, u"cmdStartImg"), kReleased);
  });
  EXPECT_EQ(starts_, 1);
  EXPECT_TRUE(bench_.toolkit.messages.boxes.empty());
  EXPECT_TRUE(bench_.kit->log.empty());
}

TEST_F(DialogButtonsTest, AFailureNobodyTrappedIsReportedUnderItsHandler) {
  std::int32_t raised = 0;
  bench_.context.start_game = [&](frmrcBHDGS&) {
    raised = __LINE__ + 1;
    throw RuntimeError(ErrorNumber::kOverflow);
  };
  bench_.Show([](frmrcBHDGS& dialog) { DialogBench::Release(dialog, u"cmdStart"); });
  ASSERT_EQ(bench_.kit->log.size(), 1u);
  EXPECT_EQ(bench_.kit->log[0].label, u"cmdStart_MouseUp");
  EXPECT_EQ(bench_.kit->log[0].number, 6);
  EXPECT_EQ(bench_.kit->log[0].line, raised);
  EXPECT_EQ(bench_.toolkit.messages.boxes.at(0).caption, u"DLL Error!");
}

TEST(DialogUnload, RestoresThePointerThenUnhooksAndLetsTheDialogGo) {
  enum class Way { kCancel, kCancelRight, kOwnButton, kOrdered };
  for (const Way way : {Way::kCancel, Way::kCancelRight, Way::kOwnButton, Way::kOrdered}) {
    DialogBench bench;
    std::weak_ptr<frmrcBHDGS> before;
    bench.Show([&](frmrcBHDGS& dialog) {
      before = bench.context.dialog;
      dialog.Get<ui::TextBox>(u"txtName").SetText(u"changed");
      bench.toolkit.journal.clear();
      switch (way) {
        case Way::kCancel:
          return DialogBench::Release(dialog, u"cmdCancel");
        case Way::kCancelRight:
          return DialogBench::Release(dialog, u"cmdCancelImg", ui::kRightButton);
        case Way::kOwnButton:
          return dialog.Happened(ui::CloseAsked{});
        case Way::kOrdered:
          return dialog.Unload();
      }
    });
    auto& journal = bench.toolkit.journal;
    const auto pointer = std::find(journal.begin(), journal.end(), "ScreenPointer default");
    ASSERT_NE(pointer, journal.end());
    EXPECT_EQ(*(pointer + 1), "UnhookTabBackground");
    EXPECT_EQ(std::count(journal.begin(), journal.end(), "UnhookTabBackground"), 1);
    EXPECT_EQ(bench.context.dialog, nullptr);
    bench.toolkit.RunDeferred();
    EXPECT_TRUE(before.expired());
    EXPECT_EQ(TakeDialog(bench.context)->Get<ui::TextBox>(u"txtName").text(), u"");
    EXPECT_TRUE(bench.toolkit.messages.boxes.empty());
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
