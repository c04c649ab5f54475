// The operator and the scripted toolkit: what a real window would refuse is refused here too.
#include "headless/headless_operator.h"

#include <gtest/gtest.h>

#include "headless/fixed_process_paths.h"
#include "headless/settable_clock.h"
#include "tests/ui/form_bench.h"
#include "ui/check_box.h"
#include "ui/combo_box.h"
#include "ui/frame.h"
#include "ui/image.h"
#include "ui/label.h"
#include "ui/list_box.h"
#include "ui/text_box.h"

namespace quill::headless {
namespace {

using ui::FailureOf;

std::string RefusalOf(const std::function<void()>& gesture) {
  try {
    gesture();
  } catch (const RuntimeError& error) {
    return ToUtf8(error.description());
  }
  return "(not refused)";
}

class HeadlessOperatorTest : public testing::Test {
 protected:
  ui::FormBench bench;
  ui::Form& form = *bench.form;
  HeadlessOperator& hand = bench.hand;
};

TEST_F(HeadlessOperatorTest, RefusesWhatNobodyCouldDo) {
  auto& frame = form.Add<ui::Frame>(u"fmeMap", nullptr, u"");
  auto& check = form.Add<ui::CheckBox>(u"chk", &frame);
  auto& combo = form.Add<ui::ComboBox>(u"cbo", &frame);
  combo.AddItem(u"None");
  form.Add<ui::ListBox>(u"lst", &frame, ui::Selection::kSingle, ui::ListHeight::kManyRows)
      .AddItem(u"row");
  const auto click = [&] { hand.Click(u"chk"); };
  EXPECT_EQ(RefusalOf(click), "The dialog is not shown");
  bench.WhileShown([&] {
    frame.SetVisible(false);
    EXPECT_EQ(RefusalOf(click), "'chk' cannot be reached: 'fmeMap' is hidden");
    frame.SetVisible(true);
    check.SetEnabled(false);
    EXPECT_EQ(RefusalOf(click), "'chk' cannot be reached: 'chk' is disabled");
    check.SetEnabled(true);
    EXPECT_EQ(RefusalOf([&] { hand.Type(u"chk", u"x"); }),
              "'chk' is a CheckBox and takes no such gesture");
    EXPECT_EQ(RefusalOf([&] { hand.Choose(u"cbo", u"none"); }), "'cbo' has no item 'none'");
    EXPECT_EQ(RefusalOf([&] { hand.DoubleClickRow(u"lst", 1); }), "'lst' has no row 1");
    EXPECT_EQ(RefusalOf([&] { hand.SelectRows(u"lst", {}); }), "'lst' takes one row at a time");
    EXPECT_EQ(FailureOf([&] { hand.Click(u"chkOther"); }), 730);
    EXPECT_EQ(FailureOf([&] { static_cast<void>(hand.Read(u"chk", u"rows")); }), 5);

    bench.toolkit.while_message_open = [&](const ShownMessage&) {
      EXPECT_EQ(RefusalOf(click), "A box is open in front of 'chk'");
    };
    bench.toolkit.ShowMessage(u"Error!", u"text");
    click();
    hand.CloseForm();
    EXPECT_EQ(RefusalOf(click), "The dialog is not shown");
  });
  EXPECT_EQ(check.value(), 1);
  EXPECT_TRUE(form.unloaded());
  EXPECT_EQ(bench.toolkit.TakeMessages(), (std::vector<ShownMessage>{{u"Error!", u"text"}}));
  EXPECT_TRUE(bench.toolkit.messages().empty());
}

TEST_F(HeadlessOperatorTest, TypesAndPastesAsIntoAWindow) {
  auto& box = form.Add<ui::TextBox>(u"txt", nullptr, 6);
  form.Add<ui::TextBox>(u"txtLocked", nullptr, 0, ui::Alignment::kLeft, true).SetText(u"as is");
  bench.WhileShown([&] {
    hand.Type(u"txt", u"abc");
    hand.PasteAtEnd(u"txt", u"12345\r\nsecond line");
    EXPECT_EQ(box.text(), u"abc123");
    hand.Paste(u"txt", u"whole new");
    EXPECT_EQ(box.text(), u"whole ");
    hand.SelectAllAndType(u"txt", u"xy");
    EXPECT_EQ(box.text(), u"xy");
    hand.EraseLast(u"txt", 5);
    EXPECT_EQ(box.text(), u"");
    hand.Type(u"txtLocked", u"!");
    hand.Paste(u"txtLocked", u"!");
    hand.EraseLast(u"txtLocked", 1);
    EXPECT_EQ(hand.Read(u"txtLocked", u"text"), u"as is");
  });
}

TEST_F(HeadlessOperatorTest, ScrollsWithinWhatTheBarAllows) {
  auto& list =
      form.Add<ui::ListBox>(u"lst", nullptr, ui::Selection::kSingle, ui::ListHeight::kManyRows);
  list.SetBounds({0, 0, 1000, 195 * 4});
  for (int row = 0; row < 10; ++row) list.AddItem(Decimal(row));
  int scrolls = 0;
  list.on_scroll = [&] { ++scrolls; };
  bench.WhileShown([&] {
    hand.ScrollTo(u"lst", 100);
    EXPECT_EQ(list.TopIndex(), 6);
    hand.ScrollBy(u"lst", 3);
    EXPECT_EQ(scrolls, 1);
    hand.ScrollBy(u"lst", -2);
    EXPECT_EQ(list.TopIndex(), 4);
    EXPECT_EQ(scrolls, 3);
    hand.ClickRow(u"lst", 0);
    EXPECT_EQ(list.TopIndex(), 0);
    hand.ClickRow(u"lst", 9);
    EXPECT_EQ(list.TopIndex(), 6);
    EXPECT_EQ(list.ListIndex(), 9);
  });
}

TEST_F(HeadlessOperatorTest, PressesAndReleasesWithAnyButton) {
  auto& face = form.Add<ui::Image>(u"cmdImg", nullptr);
  auto& caption = form.Add<ui::Label>(u"cmd", nullptr);
  face.SetBounds({0, 0, 300, 200});
  std::string events;
  const auto note = [&](const char* what) {
    return [&events, what](const ui::MouseEvent& event) {
      events += what + std::to_string(event.button) + "/" + std::to_string(event.shift) + "@" +
                std::to_string(event.x) + "," + std::to_string(event.y) + " ";
    };
  };
  face.on_mouse_down = note("face down ");
  face.on_mouse_up = note("face up ");
  caption.on_mouse_up = note("caption up ");
  bench.WhileShown([&] {
    hand.Press(u"cmdImg", ui::kLeftButton);
    hand.Release(u"cmdImg", ui::kRightButton, 2);
    hand.Press(u"cmd", ui::kLeftButton);
    hand.Release(u"cmd", ui::kMiddleButton);
  });
  EXPECT_EQ(events, "face down 1/0@150,100 face up 2/2@150,100 caption up 4/0@0,0 ");
}

TEST_F(HeadlessOperatorTest, LetsTheHostCallWhileABoxOrFileDialogIsOpen) {
  form.Add<ui::TextBox>(u"txt", nullptr);
  std::vector<std::string> order;
  bench.toolkit.while_message_open = [&](const ShownMessage& message) {
    order.push_back("host call while " + ToUtf8(message.text));
    if (message.text == u"outer") bench.toolkit.ShowMessage(u"c", u"inner");
    EXPECT_TRUE(bench.toolkit.IsBoxOpen());
  };
  bench.toolkit.while_file_dialog_open = [&](const ui::FileDialogRequest&) { form.Unload(); };
  bench.toolkit.AnswerNextFileDialog({u"C:\\one"});
  bench.WhileShown([&] {
    bench.toolkit.ShowMessage(u"c", u"outer");
    EXPECT_EQ(bench.toolkit.ShowFileDialog(form, {}), std::vector<Text>{u"C:\\one"});
    EXPECT_EQ(bench.toolkit.ShowFileDialog(form, {}), std::vector<Text>{});
  });
  EXPECT_EQ(order, (std::vector<std::string>{"host call while outer", "host call while inner"}));
  EXPECT_FALSE(bench.toolkit.IsBoxOpen());
  EXPECT_TRUE(form.unloaded());
}

TEST_F(HeadlessOperatorTest, DeferredTasksRunWhereNoEventIsHandled) {
  form.Add<ui::TextBox>(u"txt", nullptr);
  std::vector<std::string> order;
  int event = 0;
  bench.toolkit.pump = [&] {
    ++event;
    if (event == 1) {
      bench.toolkit.Defer([&] { order.emplace_back("task"); });
      order.emplace_back("end of first event");
      return true;
    }
    order.emplace_back("second event");
    return false;
  };
  form.ShowModal();
  EXPECT_EQ(order, (std::vector<std::string>{"end of first event", "task", "second event"}));

  bool ran = false;
  {
    HeadlessToolkit passing(bench.files);
    passing.Defer([&] { passing.Defer([&] { ran = true; }); });
    EXPECT_FALSE(ran);
  }
  EXPECT_TRUE(ran);
}

TEST_F(HeadlessOperatorTest, ReadsPicturesThatBeginAsOne) {
  bench.files.SetContents(u"C:\\Host\\a.gif", "GIF87a...");
  bench.files.SetContents(u"C:\\Host\\b.gif", "GIF88a...");
  bench.files.SetContents(u"C:\\Host\\c.gif", "GIF");
  EXPECT_EQ(bench.toolkit.ReadPicture(u"C:\\Host\\a.gif")->path(), u"C:\\Host\\a.gif");
  const std::vector<std::pair<TextView, int>> failing = {
      {u"C:\\Host\\b.gif", 481}, {u"C:\\Host\\c.gif", 481}, {u"C:\\Host\\imgs\\a.gif", 53}};
  for (const auto& [path, number] : failing) {
    EXPECT_EQ(FailureOf([&, at = path] { bench.toolkit.ReadPicture(at); }), number);
  }
  const std::vector<std::uint32_t> pixels(6);
  EXPECT_EQ(bench.toolkit.MakePicture(3, 2, pixels)->path(), u"");
  EXPECT_EQ(FailureOf([&] { bench.toolkit.MakePicture(4, 2, pixels); }), 481);
}

TEST(FixedPlatformTest, TellsWhatItWasGiven) {
  FixedProcessPaths paths(u"C:\\Host\\host.exe");
  EXPECT_EQ(paths.ExecutablePath(7), u"C:\\Host");
  SettableClock clock(5);
  EXPECT_EQ(clock.Ticks(), clock.Ticks());
  clock.Set(6);
  EXPECT_EQ(clock.Ticks(), 6u);
}

}  // namespace
}  // namespace quill::headless
