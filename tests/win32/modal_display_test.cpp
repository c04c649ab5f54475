// A modal display among the host's own windows and loops, and what is left when dialogs are gone.
#include <gtest/gtest.h>

#include "host/win32/leak_watch.h"
#include "host/win32/no_more_windows.h"
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

TEST(ModalDisplay, ATextTallerThanTheScreenScrollsInABoxLikeTheSystems) {
  NativeBench bench;
  const HostWindow host;
  const Text caption = u"Tall";
  Text text = u"First & only";
  for (int i = 0; i < 500; ++i) text += Concat({kLineBreak, Decimal(i), u".BMS"});
  const auto show = [&](const std::function<void(HWND box, HWND field)>& step) {
    int turns = 0;
    const host::Heartbeat heartbeat([&] {
      const host::OpenBox box = host::FindOpenBox();
      if (box.window == nullptr) return;
      if (++turns == 1) {
        EXPECT_EQ(box.caption, caption);
        EXPECT_EQ(box.text, text);
        EXPECT_FALSE(IsWindowEnabled(host.get()));
        step(box.window, GetFocus());
      } else if (turns > 300) {
        ADD_FAILURE() << "the box does not close";
        host::AcknowledgeBox(box);
      }
    });
    bench.toolkit->ShowMessage(caption, text);
    EXPECT_TRUE(IsWindowEnabled(host.get()));
  };
  show([&](HWND box, HWND field) {
    RECT work = {};
    RECT place = {};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    GetWindowRect(box, &place);
    EXPECT_TRUE(place.left >= work.left && place.top >= work.top && place.right <= work.right &&
                place.bottom <= work.bottom);
    for (int page = 0; page < 3; ++page) SendMessageW(field, WM_KEYDOWN, VK_NEXT, 1);
    EXPECT_GT(SendMessageW(field, EM_GETFIRSTVISIBLELINE, 0, 0), 5);
    SendMessageW(field, WM_COPY, 0, 0);
    ASSERT_TRUE(OpenClipboard(field));
    EXPECT_EQ(reinterpret_cast<const char16_t*>(GlobalLock(GetClipboardData(CF_UNICODETEXT))),
              text);
    CloseClipboard();
    PostMessageW(field, WM_KEYDOWN, VK_RETURN, 1);
  });
  show([](HWND, HWND field) { PostMessageW(field, WM_KEYDOWN, VK_ESCAPE, 1); });
  show([](HWND box, HWND) { PostMessageW(box, WM_SYSCOMMAND, SC_CLOSE, 0); });
  show([](HWND box, HWND) { PostMessageW(GetDlgItem(box, IDOK), BM_CLICK, 0, 0); });

  for (const Text& refused : {Text(u"short"), text}) {
    const host::NoMoreWindows none;
    EXPECT_THROW(bench.toolkit->ShowMessage(caption, refused), RuntimeError);
  }
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
