// Check boxes, drop-down lists, tab strips and push buttons.
#include <gtest/gtest.h>

#include "tests/ui/form_bench.h"
#include "ui/check_box.h"
#include "ui/combo_box.h"
#include "ui/command_button.h"
#include "ui/frame.h"
#include "ui/image.h"
#include "ui/label.h"
#include "ui/list_box.h"
#include "ui/picture_box.h"
#include "ui/tab_strip.h"
#include "ui/text_box.h"

namespace quill::ui {
namespace {

class ChoicesTest : public testing::Test {
 protected:
  FormBench bench;
  Form& form = *bench.form;
  int clicks = 0;
};

TEST_F(ChoicesTest, CheckBoxHasThreeStatesAndClicksBetweenTwo) {
  auto& check = form.Add<CheckBox>(u"chk", nullptr);
  check.on_click = [&] { ++clicks; };
  EXPECT_EQ(FailureOf([&] { check.SetValue(3); }), 380);
  EXPECT_EQ(FailureOf([&] { check.SetValue(-1); }), 380);
  check.SetValue(0);
  EXPECT_EQ(clicks, 0);
  check.SetValue(2);
  EXPECT_EQ(clicks, 1);
  EXPECT_EQ(FormBench::Seen(check, u"value"), "2");
  bench.WhileShown([&] {
    std::string seen;
    for (int click = 0; click < 3; ++click) {
      bench.hand.Click(u"chk");
      seen += ToUtf8(bench.hand.Read(u"chk", u"value"));
    }
    EXPECT_EQ(seen, "010");
  });
  EXPECT_EQ(clicks, 4);
}

TEST_F(ChoicesTest, ComboBoxRunsItsHandlerAtOnceOnEveryChoice) {
  auto& combo = form.Add<ComboBox>(u"cbo", nullptr);
  std::vector<Text> chosen;
  combo.on_click = [&] { chosen.emplace_back(combo.text()); };
  EXPECT_EQ(combo.text(), u"");
  for (const TextView item : {u"None", u"Mod", u"mod", u""}) combo.AddItem(item);
  combo.SetText(u"mod");
  EXPECT_EQ(combo.ListIndex(), 2);
  combo.SetText(u"mod");
  combo.SetText(u"");
  combo.SetListIndex(-1);
  EXPECT_EQ(chosen, (std::vector<Text>{u"mod", u"mod", u""}));

  combo.SetListIndex(1);
  try {
    combo.SetText(u"Missing");
    ADD_FAILURE() << "took a text that is not in the list";
  } catch (const RuntimeError& error) {
    EXPECT_TRUE(error.Is(ErrorNumber::kTextNotInList));
    EXPECT_NE(error.description().find(u"Missing"), Text::npos);
  }
  EXPECT_EQ(FailureOf([&] { combo.SetListIndex(4); }), 380);
  EXPECT_EQ(FailureOf([&] { combo.SetListIndex(-2); }), 380);
  for (const int wrong : {-1, 4}) {
    EXPECT_EQ(FailureOf([&] { static_cast<void>(combo.Item(wrong)); }), 5);
  }
  EXPECT_EQ(combo.text(), u"Mod");
  EXPECT_EQ(FormBench::Seen(combo, u"text"), "Mod");

  chosen.clear();
  bench.WhileShown([&] {
    bench.hand.Choose(u"cbo", u"None");
    headless::MirrorOf(combo).ChangeCurrent(9);
    combo.Happened(ItemChosen{9});
    combo.Happened(ItemChosen{-1});
    EXPECT_EQ(bench.hand.Read(u"cbo", u"index"), u"0");
  });
  EXPECT_EQ(chosen, std::vector<Text>{u"None"});

  combo.Clear();
  EXPECT_EQ(combo.ListIndex(), -1);
  EXPECT_EQ(FormBench::Seen(combo, u"count"), "0");
  EXPECT_EQ(FormBench::Seen(combo, u"text"), "");
}

TEST_F(ChoicesTest, ControlsIgnoreFactsOfOtherKinds) {
  auto& check = form.Add<CheckBox>(u"chk", nullptr);
  auto& button = form.Add<CommandButton>(u"cmd", nullptr);
  form.Add<Frame>(u"fme", nullptr, u"");
  form.Add<Label>(u"lbl", nullptr);
  form.Add<Image>(u"img", nullptr);
  form.Add<TextBox>(u"txt", nullptr, 5);
  form.Add<ComboBox>(u"cbo", nullptr);
  form.Add<TabStrip>(u"ts", nullptr, std::vector<Text>{u"One"});
  form.Add<ListBox>(u"lst", nullptr, Selection::kExtended, ListHeight::kManyRows);
  check.on_click = [&] { ++clicks; };
  button.on_click = [&] { ++clicks; };
  bench.WhileShown([&] {
    const std::vector<Fact> facts = {TextEdited{u"x"}, ItemChosen{0}, RowsSelected{{0}, 0},
                                     ScrolledTo{1},    TabChosen{1},  CloseAsked{},
                                     MouseLost{}};
    for (const Fact& fact : facts) {
      for (const auto& control : form.controls()) control->Happened(fact);
    }
    form.Happened(MouseLost{});
    EXPECT_TRUE(bench.unhandled.empty());
    EXPECT_EQ(form.Get<TextBox>(u"txt").text(), u"x");
    EXPECT_EQ(clicks, 0);
    button.Happened(Clicked{});
    EXPECT_EQ(clicks, 1);
  });
  EXPECT_FALSE(form.unloaded());
}

TEST_F(ChoicesTest, KeysPressAnImageThatIsATabStop) {
  struct NoPicture final : Picture {
    [[nodiscard]] TextView path() const noexcept override { return u""; }
  };
  auto& image = form.Add<Image>(u"img", nullptr);
  image.SetPicture(std::make_shared<NoPicture>());
  image.SetTabIndex(0);
  std::string heard;
  image.on_mouse_down = [&](const MouseEvent& event) { heard += event.button == 1 ? 'd' : '?'; };
  image.on_mouse_up = [&](const MouseEvent&) { heard += 'u'; };
  image.on_mouse_lost = [&] { heard += 'l'; };
  bench.WhileShown([&] {
    EXPECT_FALSE(image.Happened(KeyStruck{{kSpaceKey, kAltHeld}})) << "the window's own menu";
    image.Happened(KeyReleased{kSpaceKey});
    EXPECT_EQ(heard, "") << "it was pressed somewhere else";
    for (const bool repeated : {false, true}) image.Happened(KeyStruck{{kSpaceKey}, repeated});
    image.Happened(KeyReleased{kSpaceKey});
    for (const bool repeated : {false, true}) image.Happened(KeyStruck{{kEnterKey}, repeated});
    EXPECT_EQ(heard, "dudu");
    image.Happened(KeyStruck{{kSpaceKey}});
    image.Happened(FocusLost{});
    image.Happened(KeyReleased{kSpaceKey});
    EXPECT_EQ(heard, "dududl");
  });
}

}  // namespace
}  // namespace quill::ui
