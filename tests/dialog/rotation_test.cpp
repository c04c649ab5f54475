// The rotation where it and its view differ, at odd game types, and beyond the limit.
#include <gtest/gtest.h>

#include <algorithm>

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
      const SelectedMap& map = rotation_.At(row + 1);
      EXPECT_EQ(dialog.lstSelMaps.Item(row), Concat({map.name, u" <", map.file, u">"}));
      EXPECT_EQ(dialog.lstSelMaps.ItemData(row), map.game_type);
      EXPECT_FALSE(dialog.lstSelMaps.IsSelected(row));
    }
    EXPECT_TRUE(dialog.lstSelMaps.visible());
    EXPECT_EQ(dialog.lblMapCnt.caption(),
              Concat({u"Number of Maps: ", Decimal(rotation_.Count())}));
    EXPECT_EQ(dialog.lstSelMaps.tooltip(), Concat({u"Maps: ", Decimal(rotation_.Count()), u" / ",
                                                   Decimal(bench_.context.maps.TotalMapCount())}));
  }
};

// Loaders may go beyond the limit; adding stays refused until the list is shorter than it again.
TEST_F(Rotation, NothingJoinsAtOrBeyondTheLimit) {
  bench_.Select(257);
  OnMapPage([&](frmrcBHDGS&) {
    const auto add = [&] { bench_.person.DoubleClickRow(u"lstAvlMaps", 0); };
    bench_.person.DoubleClickRow(u"lstSelMaps", 256);
    add();
    EXPECT_EQ(rotation_.Count(), 256);
    EXPECT_EQ(bench_.toolkit.messages(), (std::vector<Box>{kLimitBox}));
    bench_.person.SelectRows(u"lstSelMaps", {10, 11});
    bench_.person.Key(u"lstSelMaps", u'-');
    add();
    EXPECT_EQ(rotation_.Count(), 255);
    EXPECT_EQ(bench_.toolkit.messages().size(), 1u);
  });
}

// A view can be older than the rotation: after a load that failed half-way, or when the host has
// opened the plug-in anew.
TEST_F(Rotation, RemovesTheMapAtTheRowsPlaceWhateverTheRowShows) {
  SetNumbered(4);
  OnMapPage([&](frmrcBHDGS& dialog) {
    const auto make_old = [&] {
      SetNumbered(4);
      dialog.BuildMapList();
      rotation_.Replace({Numbered(7), Numbered(1), Numbered(3)});
    };
    make_old();
    bench_.person.SelectRows(u"lstSelMaps", {0, 2, 3});
    bench_.person.Key(u"lstSelMaps", u'-');
    EXPECT_EQ(Files(), (std::vector<Text>{u"1.BMS"}));
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
  EXPECT_TRUE(bench_.watch.failures.empty());
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
    dialog.txtGametype.SetText(u"Chess");
    bench_.person.Release(u"cmdRight", ui::kLeftButton);
    EXPECT_EQ(dialog.txtGametype.text(), u"Deathmatch");
  });
  EXPECT_TRUE(bench_.watch.failures.empty());
}

TEST_F(Rotation, ARefreshTakesEachRowOnce) {
  SetNumbered(255);
  OnMapPage([&](frmrcBHDGS& dialog) {
    const headless::MirrorPeer& mirror = headless::MirrorOf(dialog.lstSelMaps);
    const std::size_t rows_before = mirror.rows_taken();
    bench_.calls.clear();
    dialog.BuildMapList();
    EXPECT_EQ(mirror.rows_taken() - rows_before, 255u);
    const std::ptrdiff_t syncs = bench_.CallsOf(u"Sync lstSelMaps");
    EXPECT_LE(syncs, 4);
    ExpectViewShowsRotation(dialog);
  });
}

}  // namespace
}  // namespace quill
