// What no operator sees of the dialog's load and unload.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/dialog/dialog_bench.h"

namespace quill {
namespace {

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
  constexpr TextView kRead = u"ReadPicture C:\\Host\\imgs\\butup.gif";
  EXPECT_EQ(bench.CallsOf(kRead), 14);
  EXPECT_EQ(bench.toolkit.TabBackgroundOf(dialog->tsMain), &dialog->Picture1);
  EXPECT_LT(std::find(bench.calls.begin(), bench.calls.end(), u"HookTabBackground tsMain"),
            std::find(bench.calls.begin(), bench.calls.end(), kRead));
  EXPECT_TRUE(bench.toolkit.messages().empty());
}

TEST(DialogLoad, IsTheDialogThatCallsDuringItsReportGet) {
  DialogBench bench;
  bench.before_call = [](TextView call) {
    if (call.starts_with(u"ReadPicture")) throw RuntimeError(ErrorNumber::kInvalidPicture);
  };
  std::shared_ptr<frmrcBHDGS> seen;
  bench.toolkit.while_message_open = [&](const headless::ShownMessage&) {
    seen = TakeDialog(bench.context);
  };
  EXPECT_EQ(TakeDialog(bench.context), seen);
  EXPECT_EQ(bench.toolkit.messages().size(), 1u);
}

TEST(DialogUnload, RestoresThePointerThenUnhooksAndLetsTheDialogGo) {
  enum class Way { kCancel, kCancelRight, kOwnButton, kOrdered };
  for (const Way way : {Way::kCancel, Way::kCancelRight, Way::kOwnButton, Way::kOrdered}) {
    DialogBench bench;
    std::weak_ptr<frmrcBHDGS> before;
    bench.Show([&](frmrcBHDGS& dialog) {
      before = bench.context.dialog;
      dialog.Get<ui::TextBox>(u"txtName").SetText(u"changed");
      bench.calls.clear();
      switch (way) {
        case Way::kCancel:
          return bench.person.Release(u"cmdCancel", ui::kLeftButton);
        case Way::kCancelRight:
          return bench.person.Release(u"cmdCancelImg", ui::kRightButton);
        case Way::kOwnButton:
          return dialog.Happened(ui::CloseAsked{});
        case Way::kOrdered:
          return dialog.Unload();
      }
    });
    const std::vector<Text> expected = {u"SetScreenPointer default", u"UnhookTabBackground tsMain"};
    EXPECT_NE(std::search(bench.calls.begin(), bench.calls.end(), expected.begin(), expected.end()),
              bench.calls.end());
    EXPECT_EQ(bench.CallsOf(expected[1]), 1);
    EXPECT_EQ(bench.context.dialog, nullptr);
    EXPECT_TRUE(before.expired());
    EXPECT_EQ(TakeDialog(bench.context)->Get<ui::TextBox>(u"txtName").text(), u"");
    EXPECT_TRUE(bench.toolkit.messages().empty());
  }
}

}  // namespace
}  // namespace quill
