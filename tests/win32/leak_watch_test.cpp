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
  TextView resource;
  void (*plant)();
};

const Leak kLeaks[] = {
    {"a window", u"user objects",
     [] {
       CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);
     }},
    {"a brush", u"GDI objects", [] { CreateSolidBrush(RGB(1, 2, 3)); }},
    {"an event", u"kernel handles", [] { CreateEventW(nullptr, TRUE, FALSE, nullptr); }},
    {"an atom of an old name", u"uses of atoms", [] { GlobalAddAtomW(L"planted by a test"); }},
    {"a thread-local slot", u"thread slots", [] { static_cast<void>(TlsAlloc()); }},
    {"memory of the process's heap", u"heap blocks", [] { HeapAlloc(GetProcessHeap(), 0, 24); }},
    {"memory of the runtime's heap", u"heap bytes",
     [] {
       void* volatile forgotten = std::malloc(24);
       static_cast<void>(forgotten);
     }},
};

TEST(Resources, CountALeakOfTheirKind) {
  for (const Resource& resource : Resources()) {
    static_cast<void>(resource.count());  // what the counting itself brings in
    bool is_tried = false;
    for (const Leak& leak : kLeaks) {
      if (leak.resource != resource.name) continue;
      const long before = resource.count();
      leak.plant();
      EXPECT_GT(resource.count(), before) << leak.name;
      is_tried = true;
    }
    EXPECT_TRUE(is_tried) << ToUtf8(resource.name);
  }
}

std::vector<TextView> GrownBy(void (*work)()) {
  constexpr int kCycles = 40;
  LeakWatch watch(kCycles);
  for (int cycle = 0; cycle < kCycles; ++cycle) {
    work();
    watch.CycleDone();
  }
  std::vector<TextView> grown;
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
              testing::ElementsAre(u"GDI objects"));
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
