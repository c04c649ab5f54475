// A leak of each kind, planted on purpose, is noticed and named.
#include <gtest/gtest.h>

#include <windows.h>

#include <cstdlib>
#include <vector>

#include "host/win32/leak_watch.h"
#include "tests/win32/native_bench.h"

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

TEST(LeakWatch, NoticesALeakInSomeOfTheCycles) {
  int cycle = 0;
  EXPECT_EQ(GrownBy([&] {
              if (++cycle % 10 == 0) static_cast<void>(CreateSolidBrush(RGB(1, 2, 3)));
            }),
            std::vector<TextView>{u"GDI objects"});
}

}  // namespace
}  // namespace quill::host
