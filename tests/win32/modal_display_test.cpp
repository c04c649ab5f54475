// A modal display among the host's own windows and loops, and what is left when dialogs are gone.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

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

BOOL CALLBACK CountOne(HWND, LPARAM counter) {
  ++*reinterpret_cast<int*>(counter);
  return TRUE;
}
BOOL CALLBACK CountAll(HWND window, LPARAM counter) {
  EnumChildWindows(window, &CountOne, counter);
  return CountOne(window, counter);
}
int CountWindows() {
  int count = 0;
  EnumThreadWindows(GetCurrentThreadId(), &CountAll, reinterpret_cast<LPARAM>(&count));
  return count;
}

const char* PointerAt(const char* place) {
  std::uint64_t pointer = 0;  // of the wide form, in a 32-bit process too
  std::memcpy(&pointer, place, sizeof pointer);
  return reinterpret_cast<const char*>(static_cast<std::uintptr_t>(pointer));
}

const char* CallNtdll(const char* name) {
  using Function = const char*(WINAPI*)();
  return reinterpret_cast<Function>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), name)))();
}

// The process's 64-bit block; a 32-bit process reaches it through its thread's.
const char* WideProcessBlock() {
  if constexpr (sizeof(void*) == 8) return CallNtdll("RtlGetCurrentPeb");
  std::uint32_t thread_block = 0;
  std::memcpy(&thread_block, CallNtdll("NtCurrentTeb") + 0xF70, sizeof thread_block);
  return PointerAt(reinterpret_cast<const char*>(static_cast<std::uintptr_t>(thread_block)) + 0x60);
}

// Wine does not count them for GetGuiResources; there the process's own table of handles tells.
int CountGdiObjects() {
  if (const DWORD count = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS)) {
    return static_cast<int>(count);
  }
  struct Entry {
    std::uint64_t object;
    std::uint32_t owner;
    std::uint16_t generation;
    std::uint8_t type;
    std::uint8_t flags;
    std::uint64_t user;
  };
  static_assert(sizeof(Entry) == 24);
  constexpr std::size_t kEntries = 0x4000;
  const auto* const table = reinterpret_cast<const Entry*>(PointerAt(WideProcessBlock() + 0xF8));
  return static_cast<int>(
      std::count_if(table, table + kEntries, [](const Entry& entry) { return entry.type != 0; }));
}

TEST(ModalDisplay, OpeningAndClosingLeavesNothingBehind) {
  NativeBench bench;
  const auto cycle = [&] {
    bench.Show([&](frmrcBHDGS& dialog) {
      bench.PickMod(u"Team Sabre");
      dialog.Unload();
    });
    DrainMessages();
  };
  for (int i = 0; i < 3; ++i) cycle();
  const int windows = CountWindows();
  const int gdi = CountGdiObjects();
  EXPECT_GT(gdi, 0) << "nothing is counted";
  for (int i = 0; i < 20; ++i) {
    cycle();
  }
  EXPECT_EQ(CountWindows(), windows);
  EXPECT_EQ(CountGdiObjects(), gdi);
  EXPECT_EQ(GlobalFindAtomW(L"lstRespawn"), 0) << "names are given back";
}

}  // namespace
}  // namespace quill
