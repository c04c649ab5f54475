// The map page: stepping game types, composing the rotation, and what the lists show of it.
#include <gtest/gtest.h>

#include <algorithm>

#include "dialog/rotation_view.h"
#include "tests/dialog/dialog_bench.h"

namespace quill {
namespace {

using Box = RecordingMessageBoxes::Box;

const Box kLimitBox = {u"Failed!", u"You cannot add more than 255 maps!"};

SelectedMap Numbered(int number) {
  return {Decimal(number), Concat({Decimal(number), u".BMS"}), 0, false};
}

class Rotation : public ::testing::Test {
 protected:
  DialogBench bench_;
  SelectedMapList& rotation_ = bench_.context.maps.selected;

  // Runs `script` with the map page open, on the standard catalogue.
  void OnMapPage(const std::function<void(frmrcBHDGS& dialog)>& script) {
    bench_.Show([&](frmrcBHDGS& dialog) {
      DialogBench::PickMod(dialog, u"None");
      dialog.tsMain.Happened(ui::TabChosen{1});
      dialog.BuildMapList();
      script(dialog);
    });
  }
  static void SelectRows(ui::ListBox& list, std::vector<int> rows) {
    const int current = rows.empty() ? -1 : rows.back();
    list.Happened(ui::RowsSelected{std::move(rows), current});
  }
  std::vector<Text> Files() const {
    std::vector<Text> files;
    for (const auto& map : rotation_.maps()) files.push_back(map.file);
    return files;
  }
  void SetNumbered(int count) {
    rotation_.Clear();
    for (int i = 0; i < count; ++i) rotation_.Append(Numbered(i));
  }
  void ExpectViewShowsRotation(const frmrcBHDGS& dialog) {
    ASSERT_EQ(dialog.lstSelMaps.Count(), rotation_.Count());
    for (int row = 0; row < rotation_.Count(); ++row) {
      EXPECT_TRUE(RowShowsRecord(dialog.lstSelMaps, rotation_, row)) << row;
      EXPECT_EQ(dialog.lstSelMaps.ItemData(row), rotation_.At(row + 1).game_type);
      EXPECT_FALSE(dialog.lstSelMaps.IsSelected(row));
    }
    EXPECT_TRUE(dialog.lstSelMaps.visible());
    EXPECT_EQ(dialog.lblMapCnt.caption(),
              Concat({u"Number of Maps: ", Decimal(rotation_.Count())}));
    EXPECT_EQ(dialog.lstSelMaps.tooltip(), Concat({u"Maps: ", Decimal(rotation_.Count()), u" / ",
                                                   Decimal(bench_.context.maps.TotalMapCount())}));
  }
};

TEST_F(Rotation, ArrowsCycleThroughAllGameTypes) {
  OnMapPage([&](frmrcBHDGS& dialog) {
    DialogBench::Release(dialog, u"cmdLeft");
    EXPECT_EQ(dialog.txtGametype.text(), u"Flagball");
    EXPECT_EQ(dialog.lstAvlMaps.Count(), 18);
    const int counts[] = {9, 16, 0, 16, 0, 16, 18, 24, 18, 9};
    for (std::size_t step = 0; step < std::size(counts); ++step) {
      DialogBench::Release(dialog, u"cmdRightImg", ui::kRightButton);
      EXPECT_EQ(dialog.txtGametype.text(), kGameTypeNames[step % 9]);
      EXPECT_EQ(dialog.lstAvlMaps.Count(), counts[step]);
      for (int row = 0; row < dialog.lstAvlMaps.Count(); ++row) {
        EXPECT_EQ(dialog.lstAvlMaps.ItemData(row), static_cast<std::int32_t>(step % 9));
      }
    }
    DialogBench::Release(dialog, u"cmdLeft");
    DialogBench::Release(dialog, u"cmdLeft");
    EXPECT_EQ(dialog.txtGametype.text(), u"Capture the Flag");

    dialog.txtGametype.SetText(u"Chess");
    DialogBench::Release(dialog, u"cmdLeft");
    EXPECT_EQ(dialog.txtGametype.text(), u"Flagball");
    dialog.txtGametype.SetText(u"Chess");
    DialogBench::Release(dialog, u"cmdRight");
    EXPECT_EQ(dialog.txtGametype.text(), u"Deathmatch");
    EXPECT_EQ(dialog.lstAvlMaps.Count(), 9);
  });
}

TEST_F(Rotation, DoubleClickAddsAMapEachTime) {
  OnMapPage([&](frmrcBHDGS& dialog) {
    bench_.context.maps.server.AppendEntry(u"Road Rage <other.bms>5");
    dialog.lstAvlMaps.Happened(ui::RowDoubleClicked{0});
    dialog.lstAvlMaps.Happened(ui::RowDoubleClicked{0});
    dialog.lstAvlMaps.Happened(ui::RowDoubleClicked{1});
    // The flag follows the name, whatever the server map's own file and game type.
    const SelectedMap road_rage = {u"Road Rage", u"DMK_01A.BMS", 0, true};
    const SelectedMap city = {u"City Madness", u"DMM_01A.BMS", 0, false};
    EXPECT_EQ(rotation_.maps(), (std::vector<SelectedMap>{road_rage, road_rage, city}));
    ExpectViewShowsRotation(dialog);

    dialog.lstAvlMaps.Happened(ui::RowDoubleClicked{-1});
    EXPECT_EQ(rotation_.Count(), 3);
  });
  EXPECT_TRUE(bench_.toolkit.messages.boxes.empty());
}

TEST_F(Rotation, KeysAddTheSelectedRowsInTheirOrder) {
  OnMapPage([&](frmrcBHDGS& dialog) {
    SelectRows(dialog.lstAvlMaps, {0, 2});
    for (const char16_t key : {u'-', u'a', u'\r', u'\xFF0B'}) {
      dialog.lstAvlMaps.Happened(ui::KeyPressed{key});
    }
    EXPECT_EQ(rotation_.Count(), 0);
    dialog.lstAvlMaps.Happened(ui::KeyPressed{u'+'});
    SelectRows(dialog.lstAvlMaps, {1});
    dialog.lstAvlMaps.Happened(ui::KeyPressed{u'='});
    EXPECT_EQ(Files(), (std::vector<Text>{u"DMK_01A.BMS", u"DMM_01E.BMS", u"DMM_01A.BMS"}));
    ExpectViewShowsRotation(dialog);

    SelectRows(dialog.lstSelMaps, {0});
    dialog.lstSelMaps.Happened(ui::KeyPressed{u'+'});
    EXPECT_EQ(rotation_.Count(), 3);
  });
}

TEST_F(Rotation, TheLimitIs255Maps) {
  bench_.Select(200);
  OnMapPage([&](frmrcBHDGS& dialog) {
    auto& boxes = bench_.toolkit.messages.boxes;
    dialog.lstAvlMaps.Happened(ui::RowDoubleClicked{0});
    EXPECT_EQ(rotation_.Count(), 201);
    EXPECT_TRUE(boxes.empty());

    bench_.Select(53);
    SelectRows(dialog.lstAvlMaps, {1, 3, 5});
    dialog.lstAvlMaps.Happened(ui::KeyPressed{u'+'});
    EXPECT_EQ(rotation_.Count(), 255);
    EXPECT_EQ(rotation_.SelMapFiles(255), u"DMM_01A.BMS");
    EXPECT_EQ(boxes, (std::vector<Box>{kLimitBox}));
    ExpectViewShowsRotation(dialog);

    dialog.lstAvlMaps.Happened(ui::RowDoubleClicked{0});
    EXPECT_EQ(boxes.size(), 2u);
    dialog.lstAvlMaps.Happened(ui::KeyPressed{u'='});
    EXPECT_EQ(boxes, (std::vector<Box>{kLimitBox, kLimitBox, kLimitBox}));
    EXPECT_EQ(rotation_.Count(), 255);

    // Loaders may go beyond; adding stays refused until the list is shorter than the limit again.
    bench_.Select(2);
    dialog.BuildMapList();
    dialog.lstSelMaps.Happened(ui::RowDoubleClicked{256});
    dialog.lstAvlMaps.Happened(ui::RowDoubleClicked{0});
    EXPECT_EQ(rotation_.Count(), 256);
    EXPECT_EQ(boxes.size(), 4u);
    SelectRows(dialog.lstSelMaps, {10, 11});
    dialog.lstSelMaps.Happened(ui::KeyPressed{u'-'});
    dialog.lstAvlMaps.Happened(ui::RowDoubleClicked{0});
    EXPECT_EQ(rotation_.Count(), 255);
    EXPECT_EQ(boxes.size(), 4u);
  });
  EXPECT_TRUE(bench_.kit->log.empty());
}

TEST_F(Rotation, TheLastMapThatFitsIsToldAlsoWhenNoFurtherRowIsSelected) {
  bench_.Select(254);
  OnMapPage([&](frmrcBHDGS& dialog) {
    const int last = dialog.lstAvlMaps.Count() - 1;
    SelectRows(dialog.lstAvlMaps, {last});
    dialog.lstAvlMaps.Happened(ui::KeyPressed{u'+'});
    EXPECT_EQ(bench_.toolkit.messages.boxes, (std::vector<Box>{kLimitBox}));
    ExpectViewShowsRotation(dialog);
  });
}

TEST_F(Rotation, RemovesTheSelectedRowsOrTheClickedOne) {
  SetNumbered(3);
  OnMapPage([&](frmrcBHDGS& dialog) {
    SelectRows(dialog.lstSelMaps, {0, 2});
    for (const char16_t key : {u'+', u'=', u'_', u'\x7F'}) {
      dialog.lstSelMaps.Happened(ui::KeyPressed{key});
    }
    EXPECT_EQ(rotation_.Count(), 3);
    dialog.lstSelMaps.Happened(ui::KeyPressed{u'-'});
    EXPECT_EQ(Files(), (std::vector<Text>{u"1.BMS"}));
    ExpectViewShowsRotation(dialog);
    // Nothing is selected after a refresh.
    dialog.lstSelMaps.Happened(ui::KeyPressed{u'-'});
    dialog.lstSelMaps.Happened(ui::RowDoubleClicked{-1});
    EXPECT_EQ(rotation_.Count(), 1);
    dialog.lstSelMaps.Happened(ui::RowDoubleClicked{0});
    EXPECT_EQ(dialog.lblMapCnt.caption(), u"Number of Maps: 0");
    EXPECT_EQ(dialog.lstSelMaps.tooltip(), u"Maps: 0 / 117");
    ExpectViewShowsRotation(dialog);
  });
}

// A view that is older than the rotation must not cost a map that the operator never saw.
TEST_F(Rotation, RemovesNothingThatItsRowDoesNotShow) {
  SetNumbered(4);
  OnMapPage([&](frmrcBHDGS& dialog) {
    const auto make_old = [&] {
      SetNumbered(4);
      dialog.BuildMapList();
      rotation_.Replace({Numbered(7), Numbered(1), Numbered(3)});
    };
    make_old();
    SelectRows(dialog.lstSelMaps, {0, 1, 2, 3});
    dialog.lstSelMaps.Happened(ui::KeyPressed{u'-'});
    EXPECT_EQ(Files(), (std::vector<Text>{u"7.BMS", u"3.BMS"}));
    ExpectViewShowsRotation(dialog);

    make_old();
    dialog.lstSelMaps.Happened(ui::RowDoubleClicked{3});
    EXPECT_EQ(rotation_.Count(), 3);
    ExpectViewShowsRotation(dialog);

    make_old();
    rotation_.Clear();
    dialog.lstSelMaps.Happened(ui::RowDoubleClicked{1});
    ExpectViewShowsRotation(dialog);
  });
  EXPECT_TRUE(bench_.kit->log.empty());
}

TEST_F(Rotation, AClickNamesTheGameTypeOfTheMap) {
  bench_.Select(1, {u"Flag Day", u"CTF.BMS", 7, false});
  bench_.Select(1, {u"Odd", u"ODD.BMS", 9, false});
  bench_.Select(1, {u"Odder", u"ODDER.BMS", -1, false});
  OnMapPage([&](frmrcBHDGS& dialog) {
    const Text count = u"Maps: 3 / 117";
    SelectRows(dialog.lstSelMaps, {1});
    SelectRows(dialog.lstSelMaps, {2});
    SelectRows(dialog.lstSelMaps, {});
    EXPECT_EQ(dialog.lstSelMaps.tooltip(), count);
    SelectRows(dialog.lstSelMaps, {0});
    EXPECT_EQ(dialog.lstSelMaps.tooltip(), u"Capture the Flag");
    SelectRows(dialog.lstSelMaps, {1});
    EXPECT_EQ(dialog.lstSelMaps.tooltip(), u"Capture the Flag");
    dialog.BuildMapList();
    EXPECT_EQ(dialog.lstSelMaps.tooltip(), count);
  });
  EXPECT_TRUE(bench_.kit->log.empty());
}

TEST_F(Rotation, ARefreshTellsTheListOnceAndKeepsItShownWhateverFails) {
  SetNumbered(255);
  OnMapPage([&](frmrcBHDGS& dialog) {
    bench_.toolkit.synced.clear();
    dialog.BuildMapList();
    const auto& synced = bench_.toolkit.synced;
    EXPECT_LE(std::count_if(synced.begin(), synced.end(),
                            [](const auto& sync) {
                              return sync.changes.Has(ui::Changes::kRows) ||
                                     sync.changes.Has(ui::Changes::kRowsAdded);
                            }),
              1);

    rotation_.Append(Numbered(255));
    int syncs = 0;
    bench_.toolkit.before = [&](const std::string& operation) {
      if (operation == "Sync" && ++syncs == 2) throw RuntimeError(ErrorNumber::kOutOfMemory);
    };
    dialog.BuildMapList();
    bench_.toolkit.before = nullptr;
    ASSERT_EQ(bench_.kit->log.size(), 1u);
    EXPECT_EQ(bench_.kit->log[0].label, u"BuildMapList");
    EXPECT_GT(bench_.kit->log[0].line, 0);
    EXPECT_TRUE(dialog.lstSelMaps.visible());
    dialog.BuildMapList();
    ExpectViewShowsRotation(dialog);
  });
}

TEST(IsInArray, FindsWholeElementsOnly) {
  const std::vector<Text> list = {u"-1", u"12", u"", u"Ab"};
  EXPECT_TRUE(IsInArray(u"-1", list));
  EXPECT_TRUE(IsInArray(u"12", list));
  EXPECT_TRUE(IsInArray(u"", list));
  EXPECT_TRUE(IsInArray(u"Ab", list));
  EXPECT_FALSE(IsInArray(u"1", list));
  EXPECT_FALSE(IsInArray(u"2", list));
  EXPECT_FALSE(IsInArray(u"ab", list));
  EXPECT_FALSE(IsInArray(u"12", {}));
}

}  // namespace
}  // namespace quill
