// List boxes: rows, selection, scrolling, and how often the peer is told.
#include "ui/list_box.h"

#include <gtest/gtest.h>

#include <functional>

#include "tests/ui/form_bench.h"

namespace quill::ui {
namespace {

class ListBoxTest : public testing::Test {
 protected:
  ListBox& Make(Selection selection, ListHeight height, int rows) {
    auto& list = bench.form->Add<ListBox>(u"lst", nullptr, selection, height);
    list.SetBounds({0, 0, 3000, 195 * 5});
    for (int row = 0; row < rows; ++row) list.AddItem(Concat({u"row ", Decimal(row)}));
    list.on_click = [this] { ++clicks; };
    return list;
  }
  [[nodiscard]] std::string Seen(TextView property) {
    return FormBench::Seen(bench.form->At(u"lst"), property);
  }

  FormBench bench;
  int clicks = 0;
};

TEST_F(ListBoxTest, HoldsRowsWithTheirNumbers) {
  auto& list = Make(Selection::kSingle, ListHeight::kManyRows, 3);
  list.SetItemData(1, -7);
  EXPECT_EQ(list.Item(2), u"row 2");
  EXPECT_EQ(list.ItemData(1), -7);
  EXPECT_EQ(Seen(u"rows"), "row 0\r\nrow 1\r\nrow 2");
  EXPECT_EQ(Seen(u"data 1"), "-7");
  for (const int wrong : {-1, 3}) {
    EXPECT_EQ(FailureOf([&] { static_cast<void>(list.Item(wrong)); }), 5);
    EXPECT_EQ(FailureOf([&] { static_cast<void>(list.ItemData(wrong)); }), 5);
    EXPECT_EQ(FailureOf([&] { list.SetItemData(wrong, 1); }), 5);
    EXPECT_EQ(FailureOf([&] { static_cast<void>(list.IsSelected(wrong)); }), 5);
    EXPECT_EQ(FailureOf([&] { list.SetSelected(wrong, true); }), 5);
    EXPECT_EQ(FailureOf([&] { list.SetTopIndex(wrong); }), 380);
  }
  EXPECT_EQ(FailureOf([&] { list.SetListIndex(3); }), 380);
  EXPECT_EQ(FailureOf([&] { list.SetListIndex(-2); }), 380);
}

TEST_F(ListBoxTest, WhatIsTypedAfterASecondBeginsAnew) {
  auto& list = Make(Selection::kSingle, ListHeight::kSingleRow, 0);
  for (int number = 0; number < 30; ++number) list.AddItem(Decimal(number));
  bench.hand.now = 70000;
  bench.WhileShown([&] {
    bench.hand.Type(u"lst", u"2");
    bench.hand.now += 1000;
    bench.hand.Type(u"lst", u"5");
    EXPECT_EQ(list.TopIndex(), 25);
    bench.hand.now += 1001;
    bench.hand.Type(u"lst", u"3");
    EXPECT_EQ(list.TopIndex(), 3);
  });
}

TEST_F(ListBoxTest, WhatIsTypedBeginsWithNoBlankAndHoldsNoCommand) {
  auto& list = Make(Selection::kExtended, ListHeight::kManyRows, 0);
  for (const char16_t* row : {u"Tunnel A", u"Tunnel B", u"Two", u"+", u"-", u"="}) {
    list.AddItem(row);
  }
  bench.WhileShown([&] {
    bench.hand.Type(u"lst", u" =+-tunnel b");
    EXPECT_EQ(list.ListIndex(), 1);
  });
}

TEST_F(ListBoxTest, ChoosingRunsTheHandlerAndScrollsIntoView) {
  auto& list = Make(Selection::kSingle, ListHeight::kManyRows, 20);
  list.SetListIndex(0);
  list.SetListIndex(0);
  list.SetListIndex(-1);
  EXPECT_EQ(clicks, 2);
  list.SetListIndex(9);
  EXPECT_EQ(list.TopIndex(), 5);
  EXPECT_EQ(Seen(u"top"), "5");
  list.SetListIndex(7);
  EXPECT_EQ(list.TopIndex(), 5);
  list.SetListIndex(2);
  EXPECT_EQ(list.TopIndex(), 2);
  EXPECT_TRUE(list.IsSelected(2));
  EXPECT_EQ(Seen(u"selected"), "2");
  list.SetSelected(3, true);
  list.SetSelected(1, false);
  EXPECT_EQ(list.ListIndex(), 3);
  list.SetSelected(3, false);
  EXPECT_EQ(list.ListIndex(), -1);
  const int clicks_before = clicks;
  bench.WhileShown([&] {
    list.Happened(RowDoubleClicked{99});
    list.Happened(RowsSelected{{}, -1});
  });
  EXPECT_EQ(clicks, clicks_before);
}

TEST_F(ListBoxTest, SingleRowListFollowsWhatIsScrolledIntoView) {
  auto& list = Make(Selection::kSingle, ListHeight::kSingleRow, 50);
  int scrolls = 0;
  list.on_scroll = [&] {
    ++scrolls;
    list.SetListIndex(list.TopIndex());
  };
  list.SetListIndex(30);
  EXPECT_EQ(list.TopIndex(), 30);
  EXPECT_EQ(scrolls, 0);
  list.SetListIndex(-1);
  EXPECT_EQ(list.TopIndex(), 30);
  bench.WhileShown([&] {
    for (const auto& [to, index] : {std::pair(3, 3), {3, 3}, {1000, 49}, {-4, 0}}) {
      headless::MirrorOf(list).ChangeTopRow(to);
      list.Happened(ScrolledTo{to});
      EXPECT_EQ(list.ListIndex(), index);
      EXPECT_EQ(Seen(u"top"), std::to_string(index));
    }
    EXPECT_EQ(scrolls, 3) << "once it was there already";
    list.Happened(RowsSelected{{12}, 12});
    EXPECT_EQ(list.ListIndex(), 12);
    EXPECT_EQ(bench.hand.Read(u"lst", u"top"), u"12");
    list.Clear();
    list.Happened(ScrolledTo{5});
    list.Happened(RowsSelected{{0}, 0});
  });
  EXPECT_EQ(list.TopIndex(), 0);
  EXPECT_EQ(list.ListIndex(), -1);
}

TEST_F(ListBoxTest, ExtendedSelectionTakesRowsThatExist) {
  auto& list = Make(Selection::kExtended, ListHeight::kManyRows, 5);
  bench.WhileShown([&] {
    bench.hand.SelectRows(u"lst", {4, 0, 2});
    EXPECT_EQ(list.ListIndex(), 2);
    EXPECT_EQ(bench.hand.Read(u"lst", u"selected"), u"0 2 4");
    EXPECT_EQ(clicks, 1);

    list.Happened(RowsSelected{{-3, 1, 5, 2000000000}, 1});
    EXPECT_TRUE(list.IsSelected(1));
    EXPECT_FALSE(list.IsSelected(4));
    EXPECT_EQ(bench.hand.Read(u"lst", u"selected"), u"1");

    list.Happened(RowsSelected{{3}, 5});
    EXPECT_EQ(list.ListIndex(), 1);
    EXPECT_TRUE(list.IsSelected(1));
  });
  for (const int row : {3, 4}) list.SetSelected(row, true);
  list.SetSelected(3, false);
  list.SetListIndex(0);
  EXPECT_EQ(Seen(u"selected"), "1 4") << "the current row is not selected by code";

  list.Clear();
  for (int row = 0; row < 5; ++row) list.AddItem(u"again");
  EXPECT_EQ(Seen(u"selected"), "");
  EXPECT_EQ(list.ListIndex(), -1);
  EXPECT_FALSE(list.IsSelected(4));
}

TEST_F(ListBoxTest, DoubleClicksReachTheirHandler) {
  auto& list = Make(Selection::kExtended, ListHeight::kManyRows, 5);
  std::vector<int> rows;
  list.on_double_click = [&] { rows.push_back(list.ListIndex()); };
  bench.WhileShown([&] {
    bench.hand.DoubleClickRow(u"lst", 3);
    list.Happened(RowDoubleClicked{1});
    list.Happened(RowDoubleClicked{99});
    list.Happened(RowDoubleClicked{1});
    bench.hand.DoubleClickRow(u"lst", -1);
  });
  EXPECT_EQ(rows, (std::vector<int>{3, 1, -1, 1, -1}));
}

// What fills a list may clear it, fill it and select in it, hidden or not; the peer hears of it
// once.
TEST_F(ListBoxTest, RefillsReachThePeerOnce) {
  auto& list = Make(Selection::kExtended, ListHeight::kManyRows, 3);
  const headless::MirrorPeer& mirror = headless::MirrorOf(list);
  const auto expect_told_once = [&](int rows, const std::function<void()>& change) {
    const std::size_t syncs = mirror.syncs();
    const std::size_t taken = mirror.rows_taken();
    change();
    EXPECT_LE(mirror.syncs() - syncs, 3u);
    EXPECT_EQ(mirror.rows_taken() - taken, static_cast<std::size_t>(rows));
    EXPECT_EQ(Seen(u"count"), std::to_string(rows));
    EXPECT_EQ(Seen(u"selected"), std::to_string(rows - 1));
    EXPECT_EQ(Seen(u"data 8"), "8");
  };
  const auto refill = [&](int rows) {
    list.Clear();
    for (int row = 0; row < rows; ++row) {
      list.AddItem(Concat({u"map ", Decimal(row)}));
      list.SetItemData(row, row % 9);
    }
    list.SetSelected(rows - 1, true);
  };
  expect_told_once(1000, [&] {
    const ListBox::Refill outer(list);
    const ListBox::Refill inner(list);
    refill(1000);
    EXPECT_EQ(Seen(u"count"), "3");
  });
  expect_told_once(2000, [&] {
    list.SetVisible(false);
    refill(2000);
    EXPECT_EQ(Seen(u"count"), "1000");
    list.SetVisible(true);
  });
  expect_told_once(500, [&] {
    const ListBox::Refill whole(list);
    list.SetVisible(false);
    refill(500);
    list.SetVisible(true);
  });
  list.SetItemData(3, 77);
  EXPECT_EQ(Seen(u"data 3"), "77") << "later changes are told at once again";
  const std::size_t taken = mirror.rows_taken();
  for (int row = 0; row < 100; ++row) list.AddItem(u"more");
  EXPECT_EQ(mirror.rows_taken() - taken, 100u) << "each row by itself, and no other with it";
}

TEST_F(ListBoxTest, AMenuThatOutlivesTheDisplayDoesNothing) {
  auto& list = Make(Selection::kExtended, ListHeight::kManyRows, 1);
  list.menu = {{u"Add", u"", {}, false, [] { return true; }, [&] { ++clicks; }}};
  bench.toolkit.menu_choice = u"Add";
  bench.toolkit.before_call = [&](TextView call) {
    if (call == u"ShowMenu lst") bench.form->Hide();
  };
  bench.WhileShown([&] { list.Happened(MenuAsked{}); });
  EXPECT_EQ(clicks, 0);
}

}  // namespace
}  // namespace quill::ui
