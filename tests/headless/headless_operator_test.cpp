// The operator and the scripted toolkit: what a real window would refuse is refused here too.
#include "headless/headless_operator.h"

#include <gtest/gtest.h>

#include "tests/ui/form_bench.h"
#include "ui/check_box.h"
#include "ui/combo_box.h"
#include "ui/frame.h"
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

}  // namespace
}  // namespace quill::headless
