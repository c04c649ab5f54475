// What all controls share: place and order, who can reach them, and how events get to handlers.
#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/ui/form_bench.h"
#include "ui/controls.h"
#include "ui/list_box.h"

namespace quill::ui {
namespace {

using Seen = FormBench;

class ControlTest : public testing::Test {
 protected:
  FormBench bench;
  Form& form = *bench.form;
};

TEST_F(ControlTest, StandsBeforeItsSiblingsWhenAddedOrBroughtToTheFront) {
  auto& frame = form.Add<Frame>(u"fme", nullptr, u"Frame");
  auto& first = form.Add<Label>(u"lblFirst", nullptr);
  auto& second = form.Add<Label>(u"lblSecond", nullptr);
  EXPECT_EQ(form.children(), (std::vector<Control*>{&frame, &first, &second}));

  form.BringToFront();
  first.BringToFront();
  EXPECT_EQ(form.children(), (std::vector<Control*>{&frame, &second, &first}));
  EXPECT_EQ(Seen::Seen(first, u"order"), "2");
}

TEST_F(ControlTest, IsReachableOnlyThroughShownAndEnabledContainers) {
  auto& frame = form.Add<Frame>(u"fme", nullptr, u"");
  auto& check = form.Add<CheckBox>(u"chk", &frame);
  int clicks = 0;
  check.on_click = [&] { ++clicks; };

  check.Happened(Clicked{});
  form.SetVisible(true);
  check.Happened(Clicked{});
  EXPECT_EQ(clicks, 0) << "the form is not shown";
  bench.WhileShown([&] {
    for (Control* const one : std::vector<Control*>{&check, &frame, &form}) {
      one->SetEnabled(false);
      EXPECT_FALSE(check.IsReachable());
      check.Happened(Clicked{});
      one->SetEnabled(true);
    }
    frame.SetVisible(false);
    check.Happened(Clicked{});
    EXPECT_EQ(Seen::Seen(check, u"visible"), "true");
    EXPECT_EQ(Seen::Seen(check, u"shown"), "false");
    frame.SetVisible(true);
    EXPECT_EQ(clicks, 0);

    check.Happened(Clicked{});
    EXPECT_EQ(clicks, 1);
    form.Unload();
    check.Happened(Clicked{});
    EXPECT_EQ(clicks, 1);
  });
  EXPECT_EQ(check.value(), 1);
}

TEST_F(ControlTest, PutsANativeControlRightThatChangedWhileUnreachable) {
  auto& box = form.Add<TextBox>(u"txt", nullptr);
  auto& combo = form.Add<ComboBox>(u"cbo", nullptr);
  auto& list = form.Add<ListBox>(u"lst", nullptr, Selection::kSingle, ListHeight::kSingleRow);
  box.SetText(u"kept");
  for (const TextView item : {u"a", u"b", u"c"}) {
    combo.AddItem(item);
    list.AddItem(item);
  }
  // The messages of a window may still come after it was hidden.
  headless::MirrorOf(box).ChangeText(u"kept, and more");
  headless::MirrorOf(combo).ChangeCurrent(2);
  headless::MirrorOf(list).ChangeTopRow(1);
  box.Happened(TextEdited{u"kept, and more"});
  combo.Happened(ItemChosen{2});
  list.Happened(ScrolledTo{1});
  list.Happened(KeyPressed{u'+'});
  list.SetVisible(false);
  list.Happened(ScrolledTo{2});
  EXPECT_EQ(box.text(), u"kept");
  EXPECT_EQ(Seen::Seen(box, u"text"), "kept");
  EXPECT_EQ(Seen::Seen(combo, u"index"), "-1");
  EXPECT_EQ(Seen::Seen(list, u"top"), "0");
}

TEST_F(ControlTest, LabelsAFailureWithTheHandlerThatItLeft) {
  auto& check = form.Add<CheckBox>(u"chkOne", nullptr);
  auto& list = form.Add<ListBox>(u"lstOne", nullptr, Selection::kSingle, ListHeight::kSingleRow);
  auto& face = form.Add<Image>(u"cmdOneImg", nullptr);
  bench.files.SetContents(u"C:\\face.gif", "GIF89a");
  face.SetPicture(bench.toolkit.ReadPicture(u"C:\\face.gif"));
  auto& caption = form.Add<Label>(u"cmdOne", nullptr);
  list.AddItem(u"0");
  list.AddItem(u"1");
  const auto fail = [](int number) { throw RuntimeError(number, u"as planned"); };
  check.on_click = [&] { fail(1001); };
  list.on_scroll = [&] { fail(1002); };
  list.on_key_press = [&](char16_t) { fail(1003); };
  list.on_double_click = [&] { fail(1004); };
  face.on_mouse_down = [&](const MouseEvent&) { fail(1005); };
  caption.on_mouse_up = [&](const MouseEvent&) { throw std::bad_alloc(); };
  form.on_unload = [&] { throw std::runtime_error("of another kind"); };
  bench.WhileShown([&] {
    check.Happened(Clicked{});
    list.Happened(ScrolledTo{1});
    list.Happened(KeyPressed{u'+'});
    list.Happened(RowDoubleClicked{0});
    face.Happened(MousePressed{});
    caption.Happened(MouseReleased{});
    form.Happened(CloseAsked{});
  });
  EXPECT_EQ(bench.unhandled, (std::vector<std::string>{
                                 "chkOne_Click 1001", "lstOne_Scroll 1002", "lstOne_KeyPress 1003",
                                 "lstOne_DblClick 1004", "cmdOneImg_MouseDown 1005",
                                 "cmdOne_MouseUp 7", "Form_Unload 51"}));
  EXPECT_TRUE(form.unloaded());
}

TEST_F(ControlTest, LabelsNestedFailuresByWhereTheyWereNotTrapped) {
  auto& combo = form.Add<ComboBox>(u"cboInner", nullptr);
  combo.AddItem(u"item");
  auto& check = form.Add<CheckBox>(u"chkOuter", nullptr);
  bool inner_fails = true;
  bool outer_traps = false;
  combo.on_click = [&] {
    if (inner_fails) throw RuntimeError(1001, u"inner");
  };
  check.on_click = [&] {
    try {
      combo.SetListIndex(0);
    } catch (const RuntimeError&) {
      if (!outer_traps) throw;
    }
    if (outer_traps) throw RuntimeError(1002, u"outer");
  };
  bench.WhileShown([&] {
    check.Happened(Clicked{});
    outer_traps = true;
    check.Happened(Clicked{});
    inner_fails = false;
    check.Happened(Clicked{});
  });
  EXPECT_EQ(bench.unhandled, (std::vector<std::string>{"cboInner_Click 1001", "chkOuter_Click 1002",
                                                       "chkOuter_Click 1002"}));

  // Without an event around it, the failure is the assigner's.
  inner_fails = true;
  EXPECT_EQ(FailureOf([&] { combo.SetText(u"item"); }), 1001);
  EXPECT_EQ(bench.unhandled.size(), 3u);
}

TEST_F(ControlTest, SurvivesAHandlerThatReplacesItselfAndAReportThatFails) {
  auto& check = form.Add<CheckBox>(u"chk", nullptr);
  int second = 0;
  check.on_click = [&check, &second, kept = std::string(100, 'x')] {
    check.on_click = [&] { ++second; };
    EXPECT_EQ(kept.size(), 100u);
    throw RuntimeError(1001, kept.empty() ? u"gone" : u"here");
  };
  form.on_unhandled = [](const RuntimeError&, TextView) { throw RuntimeError(2, u"again"); };
  bench.WhileShown([&] {
    check.Happened(Clicked{});
    check.Happened(Clicked{});
    check.on_click = [] { throw RuntimeError(1002, u"with nobody to tell"); };
    form.on_unhandled = nullptr;
    check.Happened(Clicked{});
  });
  EXPECT_EQ(second, 1);
}

}  // namespace
}  // namespace quill::ui
