// A leak of each kind, planted on purpose, is noticed and named; work that gives everything back
// is not.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <windows.h>

#include <cstdlib>
#include <vector>

#include "host/win32/leak_watch.h"

namespace quill::host {
namespace {

struct Leak {
  const char* name;
  Resource resource;
  void (*plant)();
};

const Leak kLeaks[] = {
    {"a window", Resource::kWindows,
     [] {
       CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);
     }},
    {"a message-only window", Resource::kWindows,
     [] {
       CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 9, 9, HWND_MESSAGE, nullptr, nullptr, nullptr);
     }},
    {"a menu", Resource::kMenus, [] { CreatePopupMenu(); }},
    {"a menu as a user object", Resource::kUserObjects, [] { CreatePopupMenu(); }},
    {"an icon", Resource::kUserObjects,
     [] {
       const BYTE bits[32] = {};
       CreateIcon(nullptr, 16, 16, 1, 1, bits, bits);
     }},
    {"a table of shortcuts", Resource::kUserObjects,
     [] {
       ACCEL accelerator = {};
       CreateAcceleratorTableW(&accelerator, 1);
     }},
    {"a brush", Resource::kGdiObjects, [] { CreateSolidBrush(RGB(1, 2, 3)); }},
    {"a region", Resource::kGdiObjects, [] { CreateRectRgn(0, 0, 1, 1); }},
    {"a device context", Resource::kGdiObjects, [] { CreateCompatibleDC(nullptr); }},
    {"an event", Resource::kKernelHandles, [] { CreateEventW(nullptr, TRUE, FALSE, nullptr); }},
    {"an atom of an old name", Resource::kAtomUses, [] { GlobalAddAtomW(L"planted by a test"); }},
    {"a thread-local slot", Resource::kThreadSlots, [] { static_cast<void>(TlsAlloc()); }},
    {"a library", Resource::kModules, [] { LoadLibraryW(L"cabinet.dll"); }},
    {"memory of the process's heap", Resource::kHeapBlocks,
     [] { HeapAlloc(GetProcessHeap(), 0, 24); }},
    {"memory of the runtime's heap", Resource::kHeapBytes,
     [] {
       void* volatile forgotten = std::malloc(24);
       static_cast<void>(forgotten);
     }},
    {"memory of a heap of its own", Resource::kHeapBlocks,
     [] {
       static const HANDLE heap = HeapCreate(0, 0, 0);
       HeapAlloc(heap, 0, 24);
     }},
};

long Of(const ResourceCounts& counts, Resource resource) {
  return counts[static_cast<std::size_t>(resource)];
}

TEST(ResourceCounters, MoveWithALeakOfTheirKind) {
  static_cast<void>(CountResources());  // what the counting itself brings in
  ResourceCounts before = CountResources();
  for (const Leak& leak : kLeaks) {
    leak.plant();
    const ResourceCounts after = CountResources();
    EXPECT_GT(Of(after, leak.resource), Of(before, leak.resource)) << leak.name;
    before = after;
  }
}

std::vector<Resource> GrownBy(void (*work)()) {
  constexpr int kCycles = 40;
  LeakWatch watch(kCycles);
  for (int cycle = 0; cycle < kCycles; ++cycle) {
    work();
    watch.CycleDone();
  }
  std::vector<Resource> grown;
  for (const LeakWatch::Course& course : watch.Courses()) {
    if (course.grew) grown.push_back(course.resource);
  }
  return grown;
}

TEST(LeakWatch, NoticesALeakInSomeOfTheCycles) {
  EXPECT_THAT(GrownBy([] {
                static int cycle = 0;
                if (++cycle % 10 == 0) static_cast<void>(CreateSolidBrush(RGB(1, 2, 3)));
              }),
              testing::ElementsAre(Resource::kGdiObjects));
  EXPECT_THAT(GrownBy([] {
                static int cycle = 0;
                if (++cycle % 4 == 0) HeapAlloc(GetProcessHeap(), 0, 24);
              }),
              testing::Contains(Resource::kHeapBlocks));
}

TEST(LeakWatch, IsQuietAboutWhatIsGivenBack) {
  EXPECT_THAT(GrownBy([] {
                DestroyWindow(CreateWindowExW(0, L"LISTBOX", L"", WS_POPUP, 0, 0, 9, 9, nullptr,
                                              nullptr, nullptr, nullptr));
                DestroyMenu(CreatePopupMenu());
                DeleteObject(CreateSolidBrush(RGB(1, 2, 3)));
                CloseHandle(CreateEventW(nullptr, TRUE, FALSE, nullptr));
                GlobalDeleteAtom(GlobalAddAtomW(L"given back by a test"));
                TlsFree(TlsAlloc());
                FreeLibrary(LoadLibraryW(L"cabinet"));
                std::free(std::malloc(24));
              }),
              testing::IsEmpty());
}

}  // namespace
}  // namespace quill::host
