// A modal display among the host's own windows and loops, and what is left when dialogs are gone.
#include <gtest/gtest.h>

#include "host/win32/leak_watch.h"
#include "tests/win32/native_bench.h"
#include "ui/text_box.h"

namespace quill {
namespace {

class HostWindow {
 public:
  explicit HostWindow(bool visible = true)
      : window_(CreateWindowExW(0, L"STATIC", L"host", WS_OVERLAPPEDWINDOW, 0, 0, 200, 100, nullptr,
                                nullptr, nullptr, nullptr)) {
    if (visible) ShowWindow(window_, SW_SHOW);
  }
  ~HostWindow() { DestroyWindow(window_); }
  HostWindow(const HostWindow&) = delete;
  HostWindow& operator=(const HostWindow&) = delete;
  [[nodiscard]] HWND get() const { return window_; }

 private:
  HWND window_;
};

TEST(ModalDisplay, OtherWindowsOfTheThreadWait) {
  NativeBench bench;
  const HostWindow host;
  const HostWindow waiting;
  EnableWindow(waiting.get(), FALSE);
  SetActiveWindow(host.get());
  bench.Show([&](frmrcBHDGS&) {
    EXPECT_FALSE(IsWindowEnabled(host.get()));
    EXPECT_EQ(GetWindow(bench.robot.FormWindow(), GW_OWNER), nullptr);
    EXPECT_EQ(GetActiveWindow(), bench.robot.FormWindow());
    bench.during_box = [&] {
      EXPECT_FALSE(IsWindowEnabled(host.get()));
      bench.context.dialog->Unload();
      EXPECT_FALSE(IsWindowEnabled(host.get())) << "the box is still open";
    };
    bench.toolkit->ShowMessage(u"", u"a box outlives the dialog");
  });
  EXPECT_TRUE(IsWindowEnabled(host.get()));
  EXPECT_FALSE(IsWindowEnabled(waiting.get())) << "it was waiting for something else";
  EXPECT_EQ(GetActiveWindow(), host.get());

  bench.Show([](frmrcBHDGS& dialog) { dialog.Hide(); });
  EXPECT_EQ(GetActiveWindow(), host.get());
}

TEST(ModalDisplay, QuittingReachesTheOuterLoop) {
  NativeBench bench;
  const auto dialog = TakeDialog(bench.context);
  {
    const host::Heartbeat heartbeat([] { PostQuitMessage(7); });
    dialog->ShowModal();
  }
  EXPECT_FALSE(dialog->shown());
  EXPECT_FALSE(bench.robot.FormShown());
  MSG message = {};
  EXPECT_FALSE(GetMessageW(&message, nullptr, 0, 0));
  EXPECT_EQ(message.wParam, 7u);
}

TEST(ModalDisplay, ADialogWhoseWindowTheHostDestroysIsUnloaded) {
  NativeBench bench;
  const HostWindow waiting;
  bench.Show([&](frmrcBHDGS&) { DestroyWindow(bench.robot.FormWindow()); });
  EXPECT_TRUE(IsWindowEnabled(waiting.get()));
  EXPECT_EQ(bench.context.dialog, nullptr);
  bench.Show([&](frmrcBHDGS&) { EXPECT_TRUE(bench.robot.FormShown()); });
}

TEST(ModalDisplay, AHiddenDialogKeepsItsStateAndIsShownAgain) {
  NativeBench bench;
  HWND first = nullptr;
  bench.Show([&](frmrcBHDGS&) {
    bench.robot.Type(u"txtName", u"kept");
    first = bench.robot.FormWindow();
  });
  EXPECT_FALSE(bench.robot.FormShown());
  bench.context.dialog->Get<ui::TextBox>(u"txtPort").SetText(u"1");
  bench.Show([&](frmrcBHDGS& dialog) {
    EXPECT_EQ(bench.robot.FormWindow(), first);
    EXPECT_EQ(bench.Seen(u"txtName", u"text"), u"kept");
    EXPECT_EQ(bench.Seen(u"txtPort", u"text"), u"1");
    EXPECT_EQ(bench.robot.Focused(), u"txtName");
    // A host call during the display hides and shows it again.
    dialog.Hide();
    EXPECT_FALSE(bench.robot.FormShown());
  });
}

TEST(ModalDisplay, TasksWaitForTheEndOfTheEvent) {
  NativeBench bench;
  bool ran = false;
  bool ran_in_box = true;
  bench.Show([&](frmrcBHDGS& dialog) {
    dialog.Get<ui::CheckBox>(u"chkLoop").on_click = [&] {
      bench.toolkit->Defer([&] { ran = true; });
      bench.during_box = [&] {
        DrainMessages();
        ran_in_box = ran;
      };
      bench.toolkit->ShowMessage(u"", u"inside an event");
    };
    bench.robot.Click(u"chkLoop");
    DrainMessages();
    EXPECT_FALSE(ran_in_box);
    EXPECT_TRUE(ran);
  });
  bench.toolkit->Defer([&] { ran = false; });
  bench.context.dialog.reset();
  bench.toolkit->Defer([] { throw RuntimeError(ErrorNumber::kOverflow); });
  DrainMessages();
  EXPECT_FALSE(ran);
}

TEST(ModalDisplay, OpeningAndClosingLeavesNothingBehind) {
  NativeBench bench;
  constexpr int kCycles = 30;
  host::LeakWatch watch(kCycles);
  for (int cycle = 0; cycle < kCycles; ++cycle) {
    bench.Show([&](frmrcBHDGS& dialog) {
      bench.PickMod(u"Team Sabre");
      dialog.Unload();
    });
    DrainMessages();
    watch.CycleDone();
  }
  for (const host::LeakWatch::Course& course : watch.Courses()) {
    EXPECT_FALSE(course.grew) << ToUtf8(host::ResourceName(course.resource));
  }
  EXPECT_EQ(GlobalFindAtomW(L"lstRespawn"), 0) << "names are given back";
}

}  // namespace
}  // namespace quill
