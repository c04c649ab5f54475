// The map page: stepping game types, composing the rotation, and what the lists show of it.
#include <gtest/gtest.h>

#include <algorithm>

#include "dialog/rotation_view.h"
#include "tests/dialog/dialog_bench.h"

namespace quill {
namespace {

using Box = headless::ShownMessage;

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
      bench_.PickMod(u"None");
      bench_.person.ClickTab(u"Map Settings");
      dialog.BuildMapList();
      script(dialog);
    });
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
    bench_.person.Release(u"cmdLeft", ui::kLeftButton);
    EXPECT_EQ(dialog.txtGametype.text(), u"Flagball");
    EXPECT_EQ(dialog.lstAvlMaps.Count(), 18);
    const int counts[] = {9, 16, 0, 16, 0, 16, 18, 24, 18, 9};
    for (std::size_t step = 0; step < std::size(counts); ++step) {
      bench_.person.Release(u"cmdRightImg", ui::kRightButton);
      EXPECT_EQ(dialog.txtGametype.text(), kGameTypeNames[step % 9]);
      EXPECT_EQ(dialog.lstAvlMaps.Count(), counts[step]);
      for (int row = 0; row < dialog.lstAvlMaps.Count(); ++row) {
        EXPECT_EQ(dialog.lstAvlMaps.ItemData(row), static_cast<std::int32_t>(step % 9));
      }
    }
    bench_.person.Release(u"cmdLeft", ui::kLeftButton);
    bench_.person.Release(u"cmdLeft", ui::kLeftButton);
    EXPECT_EQ(dialog.txtGametype.text(), u"Capture the Flag");

    dialog.txtGametype.SetText(u"Chess");
    bench_.person.Release(u"cmdLeft", ui::kLeftButton);
    EXPECT_EQ(dialog.txtGametype.text(), u"Flagball");
    dialog.txtGametype.SetText(u"Chess");
    bench_.person.Release(u"cmdRight", ui::kLeftButton);
    EXPECT_EQ(dialog.txtGametype.text(), u"Deathmatch");
    EXPECT_EQ(dialog.lstAvlMaps.Count(), 9);
  });
}

TEST_F(Rotation, DoubleClickAddsAMapEachTime) {
  OnMapPage([&](frmrcBHDGS& dialog) {
    bench_.context.maps.server.AppendEntry(u"Road Rage <other.bms>5");
    bench_.person.DoubleClickRow(u"lstAvlMaps", 0);
    bench_.person.DoubleClickRow(u"lstAvlMaps", 0);
    bench_.person.DoubleClickRow(u"lstAvlMaps", 1);
    // The flag follows the name, whatever the server map's own file and game type.
    const SelectedMap road_rage = {u"Road Rage", u"DMK_01A.BMS", 0, true};
    const SelectedMap city = {u"City Madness", u"DMM_01A.BMS", 0, false};
    EXPECT_EQ(rotation_.maps(), (std::vector<SelectedMap>{road_rage, road_rage, city}));
    ExpectViewShowsRotation(dialog);

    bench_.person.DoubleClickRow(u"lstAvlMaps", -1);
    EXPECT_EQ(rotation_.Count(), 3);
  });
  EXPECT_TRUE(bench_.toolkit.messages().empty());
}

TEST_F(Rotation, KeysAddTheSelectedRowsInTheirOrder) {
  OnMapPage([&](frmrcBHDGS& dialog) {
    bench_.person.SelectRows(u"lstAvlMaps", {0, 2});
    for (const char16_t key : {u'-', u'a', u'\r', u'\xFF0B'}) {
      bench_.person.Key(u"lstAvlMaps", key);
    }
    EXPECT_EQ(rotation_.Count(), 0);
    bench_.person.Key(u"lstAvlMaps", u'+');
    bench_.person.SelectRows(u"lstAvlMaps", {1});
    bench_.person.Key(u"lstAvlMaps", u'=');
    EXPECT_EQ(Files(), (std::vector<Text>{u"DMK_01A.BMS", u"DMM_01E.BMS", u"DMM_01A.BMS"}));
    ExpectViewShowsRotation(dialog);

    bench_.person.SelectRows(u"lstSelMaps", {0});
    bench_.person.Key(u"lstSelMaps", u'+');
    EXPECT_EQ(rotation_.Count(), 3);
  });
}

TEST_F(Rotation, TheLimitIs255Maps) {
  bench_.Select(200);
  OnMapPage([&](frmrcBHDGS& dialog) {
    const auto& boxes = bench_.toolkit.messages();
    bench_.person.DoubleClickRow(u"lstAvlMaps", 0);
    EXPECT_EQ(rotation_.Count(), 201);
    EXPECT_TRUE(boxes.empty());

    bench_.Select(53);
    bench_.person.SelectRows(u"lstAvlMaps", {1, 3, 5});
    bench_.person.Key(u"lstAvlMaps", u'+');
    EXPECT_EQ(rotation_.Count(), 255);
    EXPECT_EQ(rotation_.SelMapFiles(255), u"DMM_01A.BMS");
    EXPECT_EQ(boxes, (std::vector<Box>{kLimitBox}));
    ExpectViewShowsRotation(dialog);

    bench_.person.DoubleClickRow(u"lstAvlMaps", 0);
    EXPECT_EQ(boxes.size(), 2u);
    bench_.person.Key(u"lstAvlMaps", u'=');
    EXPECT_EQ(boxes, (std::vector<Box>{kLimitBox, kLimitBox, kLimitBox}));
    EXPECT_EQ(rotation_.Count(), 255);

    // Loaders may go beyond; adding stays refused until the list is shorter than the limit again.
    bench_.Select(2);
    dialog.BuildMapList();
    bench_.person.DoubleClickRow(u"lstSelMaps", 256);
    bench_.person.DoubleClickRow(u"lstAvlMaps", 0);
    EXPECT_EQ(rotation_.Count(), 256);
    EXPECT_EQ(boxes.size(), 4u);
    bench_.person.SelectRows(u"lstSelMaps", {10, 11});
    bench_.person.Key(u"lstSelMaps", u'-');
    bench_.person.DoubleClickRow(u"lstAvlMaps", 0);
    EXPECT_EQ(rotation_.Count(), 255);
    EXPECT_EQ(boxes.size(), 4u);
  });
  EXPECT_TRUE(bench_.kit->log.empty());
}

TEST_F(Rotation, TheLastMapThatFitsIsToldAlsoWhenNoFurtherRowIsSelected) {
  bench_.Select(254);
  OnMapPage([&](frmrcBHDGS& dialog) {
    const int last = dialog.lstAvlMaps.Count() - 1;
    bench_.person.SelectRows(u"lstAvlMaps", {last});
    bench_.person.Key(u"lstAvlMaps", u'+');
    EXPECT_EQ(bench_.toolkit.messages(), (std::vector<Box>{kLimitBox}));
    ExpectViewShowsRotation(dialog);
  });
}

TEST_F(Rotation, RemovesTheSelectedRowsOrTheClickedOne) {
  SetNumbered(3);
  OnMapPage([&](frmrcBHDGS& dialog) {
    bench_.person.SelectRows(u"lstSelMaps", {0, 2});
    for (const char16_t key : {u'+', u'=', u'_', u'\x7F'}) {
      bench_.person.Key(u"lstSelMaps", key);
    }
    EXPECT_EQ(rotation_.Count(), 3);
    bench_.person.Key(u"lstSelMaps", u'-');
    EXPECT_EQ(Files(), (std::vector<Text>{u"1.BMS"}));
    ExpectViewShowsRotation(dialog);
    // Nothing is selected after a refresh.
    bench_.person.Key(u"lstSelMaps", u'-');
    bench_.person.DoubleClickRow(u"lstSelMaps", -1);
    EXPECT_EQ(rotation_.Count(), 1);
    bench_.person.DoubleClickRow(u"lstSelMaps", 0);
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
    bench_.person.SelectRows(u"lstSelMaps", {0, 1, 2, 3});
    bench_.person.Key(u"lstSelMaps", u'-');
    EXPECT_EQ(Files(), (std::vector<Text>{u"7.BMS", u"3.BMS"}));
    ExpectViewShowsRotation(dialog);

    make_old();
    bench_.person.DoubleClickRow(u"lstSelMaps", 3);
    EXPECT_EQ(rotation_.Count(), 3);
    ExpectViewShowsRotation(dialog);

    make_old();
    rotation_.Clear();
    bench_.person.DoubleClickRow(u"lstSelMaps", 1);
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
    bench_.person.SelectRows(u"lstSelMaps", {1});
    bench_.person.SelectRows(u"lstSelMaps", {2});
    dialog.lstSelMaps.Happened(ui::RowsSelected{});
    EXPECT_EQ(dialog.lstSelMaps.tooltip(), count);
    bench_.person.SelectRows(u"lstSelMaps", {0});
    EXPECT_EQ(dialog.lstSelMaps.tooltip(), u"Capture the Flag");
    bench_.person.SelectRows(u"lstSelMaps", {1});
    EXPECT_EQ(dialog.lstSelMaps.tooltip(), u"Capture the Flag");
    dialog.BuildMapList();
    EXPECT_EQ(dialog.lstSelMaps.tooltip(), count);
  });
  EXPECT_TRUE(bench_.kit->log.empty());
}

TEST_F(Rotation, ARefreshTakesEachRowOnceAndKeepsTheListShownWhateverFails) {
  SetNumbered(255);
  OnMapPage([&](frmrcBHDGS& dialog) {
    const headless::MirrorPeer& mirror = headless::MirrorOf(dialog.lstSelMaps);
    const std::size_t rows_before = mirror.rows_taken();
    bench_.calls.clear();
    dialog.BuildMapList();
    EXPECT_EQ(mirror.rows_taken() - rows_before, 255u);
    const std::ptrdiff_t syncs = bench_.CallsOf(u"Sync lstSelMaps");
    EXPECT_LE(syncs, 4);

    // Whichever time the list cannot be told.
    for (long failing = 1; failing <= syncs; ++failing) {
      rotation_.Append(Numbered(255));
      long told = 0;
      bench_.before_call = [&](TextView call) {
        if (call == u"Sync lstSelMaps" && ++told == failing) {
          throw RuntimeError(ErrorNumber::kOutOfMemory);
        }
      };
      dialog.BuildMapList();
      bench_.before_call = nullptr;
      ASSERT_EQ(bench_.kit->log.size(), static_cast<std::size_t>(failing));
      EXPECT_EQ(bench_.kit->log.back().label, u"BuildMapList");
      EXPECT_GT(bench_.kit->log.back().line, 0);
      EXPECT_TRUE(dialog.lstSelMaps.visible());
      dialog.BuildMapList();
      ExpectViewShowsRotation(dialog);
    }
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
