// Check boxes and drop-down lists.
#include <gtest/gtest.h>

#include "tests/ui/form_bench.h"
#include "ui/controls.h"

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
  for (const int wrong : {-1, 3}) {
    EXPECT_EQ(FailureOf([&] { check.SetValue(wrong); }), 380);
  }
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
  EXPECT_EQ(FailureOf([&] { combo.SetText(u"Missing"); }), 383);
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
