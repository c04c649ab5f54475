// A modal display among the host's own windows and loops, and what is left when dialogs are gone.
#include <gtest/gtest.h>

#include <windows.h>

#include <commctrl.h>

#include "tests/win32/native_bench.h"
#include "tests/win32/no_more_windows.h"
#include "ui/controls.h"

namespace quill {
namespace {

class HostWindow {
 public:
  HostWindow()
      : window_(CreateWindowExW(0, L"STATIC", L"host", WS_OVERLAPPEDWINDOW, 0, 0, 200, 100, nullptr,
                                nullptr, nullptr, nullptr)) {
    ShowWindow(window_, SW_SHOW);
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
  const HostWindow beside;
  SetActiveWindow(host.get());
  SetWindowPos(beside.get(), HWND_TOP, 0, 0, 0, 0, SWP_NOACTIVATE | SWP_NOMOVE | SWP_NOSIZE);
  bench.Show([&](frmrcBHDGS&) {
    EXPECT_FALSE(IsWindowEnabled(host.get()));
    EXPECT_EQ(GetWindow(bench.robot.FormWindow(), GW_OWNER), nullptr);
    EXPECT_EQ(GetActiveWindow(), bench.robot.FormWindow());
    bench.during_box = [&] {
      EXPECT_FALSE(IsWindowEnabled(host.get()));
      bench.session.dialog->Unload();
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

// Hears a window's messages before it does; one that it answers with true goes no further.
class Listener {
 public:
  Listener(HWND window, std::function<bool(UINT message, WPARAM wparam, LPARAM lparam)> hears)
      : window_(window), hears_(std::move(hears)) {
    SetWindowSubclass(window_, &Listen, 0, reinterpret_cast<DWORD_PTR>(this));
  }
  ~Listener() { RemoveWindowSubclass(window_, &Listen, 0); }
  Listener(const Listener&) = delete;
  Listener& operator=(const Listener&) = delete;

 private:
  static LRESULT CALLBACK Listen(HWND window, UINT message, WPARAM wparam, LPARAM lparam, UINT_PTR,
                                 DWORD_PTR self) {
    if (reinterpret_cast<Listener*>(self)->hears_(message, wparam, lparam)) return 0;
    return DefSubclassProc(window, message, wparam, lparam);
  }

  HWND window_;
  std::function<bool(UINT, WPARAM, LPARAM)> hears_;
};

TEST(ModalDisplay, WindowsThatServeOthersDoNotWait) {
  NativeBench bench;
  WNDCLASSW input_method = {};
  input_method.style = CS_IME;
  input_method.lpfnWndProc = &DefWindowProcW;
  input_method.lpszClassName = L"QuillTestInputMethod";
  RegisterClassW(&input_method);
  const HWND composing = CreateWindowExW(0, input_method.lpszClassName, nullptr, WS_POPUP, 0, 0, 9,
                                         9, nullptr, nullptr, nullptr, nullptr);
  const HWND list = CreateWindowExW(0, L"LISTBOX", nullptr, WS_CHILD, 0, 0, 9, 9,
                                    GetDesktopWindow(), nullptr, nullptr, nullptr);
  ASSERT_TRUE(composing != nullptr && list != nullptr);
  bench.Show([&](frmrcBHDGS&) {
    COMBOBOXINFO box = {};
    box.cbSize = sizeof box;
    ASSERT_TRUE(GetComboBoxInfo(bench.robot.Find(u"cboMods"), &box));
    for (const HWND window : {composing, list, box.hwndList}) EXPECT_TRUE(IsWindowEnabled(window));
  });
  DestroyWindow(composing);
  DestroyWindow(list);
}

TEST(ModalDisplay, AWaitingWindowThatIsActivatedBringsTheDialogForward) {
  NativeBench bench;
  const HostWindow host;
  bench.Show([&](frmrcBHDGS&) {
    SetForegroundWindow(host.get());
    EXPECT_EQ(GetActiveWindow(), host.get());
    DrainMessages();
    EXPECT_EQ(GetActiveWindow(), bench.robot.FormWindow());
    bench.during_box = [&] {
      const HWND box = host::FindOpenBox().window;
      const auto come_from_another_program = [&] {
        SetForegroundWindow(host.get());
        const HWND form = bench.robot.FormWindow();
        SendMessageW(form, WM_ACTIVATEAPP, TRUE, 0);
        MSG own;
        while (PeekMessageW(&own, form, WM_APP, WM_APP, PM_REMOVE)) DispatchMessageW(&own);
        return GetActiveWindow();
      };
      EXPECT_EQ(come_from_another_program(), box);
      // As a file dialog that asks whether to overwrite.
      const HWND question =
          CreateWindowExW(0, L"STATIC", L"question", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 100,
                          50, box, nullptr, nullptr, nullptr);
      EnableWindow(box, FALSE);
      EXPECT_EQ(come_from_another_program(), question);
      EnableWindow(box, TRUE);
      DestroyWindow(question);
    };
    bench.toolkit->ShowMessage(u"", u"in front of the dialog");
  });
  EXPECT_EQ(GetActiveWindow(), host.get());
}

// As the first window of a program is that was started so.
TEST(ModalDisplay, AWindowThatTheSystemShowsHiddenOrMinimisedIsShownAgain) {
  NativeBench bench;
  bench.Show([](frmrcBHDGS&) {});
  for (const int as_started : {SW_HIDE, SW_SHOWMINIMIZED, SW_SHOWMAXIMIZED}) {
    bool overridden = false;
    const Listener system(bench.robot.FormWindow(), [&](UINT message, WPARAM wparam, LPARAM) {
      if (message != WM_SETFOCUS && (message != WM_ACTIVATE || wparam == WA_INACTIVE)) return false;
      if (!std::exchange(overridden, true)) ShowWindow(bench.robot.FormWindow(), as_started);
      return false;
    });
    bench.Show([&](frmrcBHDGS&) {
      const HWND form = bench.robot.FormWindow();
      EXPECT_TRUE(overridden);
      EXPECT_TRUE(IsWindowVisible(form) && !IsIconic(form) && !IsZoomed(form)) << as_started;
      EXPECT_EQ(GetActiveWindow(), form);
    });
  }
}

TEST(ModalDisplay, ADialogThatIsHiddenWhileItIsBeingShownReturns) {
  NativeBench bench;
  const HostWindow host;
  const auto dialog = TakeDialog(bench.session);
  for (const UINT moment : {WM_ACTIVATE, WM_ENABLE}) {
    SetActiveWindow(host.get());
    bool hidden = false;
    const Listener activation(host.get(), [&](UINT message, WPARAM wparam, LPARAM) {
      if (message == moment && LOWORD(wparam) == 0 && !std::exchange(hidden, true)) dialog->Hide();
      return false;
    });
    int turns = 0;
    const host::Heartbeat heartbeat([&] {
      if (++turns == 200) PostQuitMessage(0);
    });
    dialog->ShowModal();
    EXPECT_TRUE(hidden);
    EXPECT_LT(turns, 200) << "the display waits for an end that has been";
    EXPECT_FALSE(bench.robot.FormShown());
    EXPECT_TRUE(IsWindowEnabled(host.get()));
  }
}

TEST(ModalDisplay, AHostAwareOfEachMonitorGetsADialogThatTheSystemScales) {
  const HMODULE user = GetModuleHandleW(L"user32.dll");
  const auto find = [&](auto* function, const char* name) {
    return reinterpret_cast<decltype(function)>(
        reinterpret_cast<void*>(GetProcAddress(user, name)));
  };
  using Context = HANDLE;
  const auto set =
      find(static_cast<Context(WINAPI*)(Context)>(nullptr), "SetThreadDpiAwarenessContext");
  const auto of_window =
      find(static_cast<Context(WINAPI*)(HWND)>(nullptr), "GetWindowDpiAwarenessContext");
  const auto of_thread =
      find(static_cast<Context(WINAPI*)()>(nullptr), "GetThreadDpiAwarenessContext");
  const auto awareness =
      find(static_cast<int(WINAPI*)(Context)>(nullptr), "GetAwarenessFromDpiAwarenessContext");
  if (set == nullptr || awareness == nullptr) GTEST_SKIP() << "the system offers none";
  constexpr int kSystem = 1;
  constexpr int kPerMonitor = 2;
  for (const INT_PTR host_context : {-3, -4}) {  // per monitor, first and second version
    const Context before = set(reinterpret_cast<Context>(host_context));
    {
      NativeBench bench;
      bench.Show([&](frmrcBHDGS&) {
        const HWND form = bench.robot.FormWindow();
        for (const HWND window : {form, bench.robot.Find(u"txtName")}) {
          EXPECT_EQ(awareness(of_window(window)), kSystem);
        }
        EXPECT_EQ(awareness(of_thread()), kPerMonitor) << "the host's own is left alone";
        bench.during_box = [&] {
          EXPECT_EQ(awareness(of_window(host::FindOpenBox().window)), kSystem);
        };
        bench.toolkit->ShowMessage(u"", u"scaled like the dialog");
      });
      EXPECT_EQ(awareness(of_thread()), kPerMonitor);
    }
    set(before);
  }
}

TEST(ModalDisplay, AWindowThatCannotBeMadeIsReportedWithItsCause) {
  NativeBench bench;
  const auto dialog = TakeDialog(bench.session);
  const host::NoMoreWindows none;
  EXPECT_EQ(FailureOf([&] { dialog->ShowModal(); }),
            HRESULT_FROM_WIN32(ERROR_NO_MORE_USER_HANDLES));
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
        host::AnswerBox(box);
      }
    });
    // Other line ends count alike.
    bench.toolkit->ShowMessage(caption, ReplaceAll(text, u"\r\n1", u"\n1"));
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
    DWORD from = 1;
    DWORD to = 1;
    SendMessageW(field, EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
    EXPECT_EQ(from, to) << "nothing was selected, nothing is";
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
  const auto dialog = TakeDialog(bench.session);
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
  EXPECT_EQ(bench.session.dialog, nullptr);
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
  int told = 0;
  {
    const Listener control(bench.robot.Find(u"tsMain"), [&](UINT message, WPARAM, LPARAM) {
      told += message == WM_SYSCOLORCHANGE ? 1 : 0;
      return false;
    });
    SendMessageW(first, WM_SYSCOLORCHANGE, 0, 0);
  }
  EXPECT_EQ(told, 1) << "common controls hear of new colours through the form";
  bench.Show([&](frmrcBHDGS& dialog) {
    EXPECT_EQ(bench.robot.FormWindow(), first);
    EXPECT_EQ(bench.Seen(u"txtName", u"text"), u"kept");
    EXPECT_EQ(bench.robot.Focused(), u"txtName");
    // A host call in the middle of a click hides it.
    dialog.tsMain.on_click = [&] { dialog.Hide(); };
    bench.robot.ClickTab(u"Map Settings");
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
    bool due_ran_in_box = false;
    bool in_box = true;
    bench.toolkit->Defer([&] { due_ran_in_box = in_box; });  // due when the event begins
    bench.robot.Click(u"chkLoop");
    in_box = false;
    DrainMessages();
    EXPECT_FALSE(ran_in_box);
    EXPECT_FALSE(due_ran_in_box);
    EXPECT_TRUE(ran);
  });
  bench.toolkit->Defer([&] { ran = false; });
  bench.session.dialog.reset();
  bench.toolkit->Defer([] { throw RuntimeError(ErrorNumber::kOverflow); });
  DrainMessages();
  EXPECT_FALSE(ran);
}

TEST(ModalDisplay, OpeningAndClosingLeavesNothingBehind) {
  NativeBench bench;
  const auto grown = GrownBy([&] {
    bench.Show([&](frmrcBHDGS& dialog) {
      bench.PickMod(u"Team Sabre");
      dialog.Unload();
    });
    DrainMessages();
  });
  EXPECT_EQ(grown, std::vector<TextView>());
  bench.session.dialog.reset();
  bench.toolkit.reset();
  WNDCLASSW left = {};
  EXPECT_FALSE(GetClassInfoW(GetModuleHandleW(nullptr), win32::Win32Toolkit::kFormClass, &left));
  EXPECT_FALSE(GetClassInfoW(GetModuleHandleW(nullptr), win32::Win32Toolkit::kImageClass, &left));
}

}  // namespace
}  // namespace quill
