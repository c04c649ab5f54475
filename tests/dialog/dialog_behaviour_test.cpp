// What no operator sees of the dialog's load and unload.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/dialog/dialog_bench.h"

namespace quill {
namespace {

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
          dialog.Happened(ui::CloseAsked{});
          return;
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
