// Exceptions and memory of a library that brings parts of the C++ runtime itself.
#include <gtest/gtest.h>
#include <malloc.h>
#include <windows.h>

#include <list>
#include <optional>
#include <vector>

#include "tests/win32/system_thread.h"

namespace {

class Probe {
 public:
  Probe() : module_(LoadLibraryA(RUNTIME_PROBE)) {
    if (module_ == nullptr) ADD_FAILURE() << RUNTIME_PROBE << ": " << GetLastError();
  }
  Probe(const Probe&) = delete;
  Probe& operator=(const Probe&) = delete;
  ~Probe() { FreeLibrary(module_); }

  template <class Function = int()>
  Function* Find(const char* name) const {
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(module_, name)));
  }
  int NestedCatches() const { return Find("ProbeNestedCatches")(); }

 private:
  HMODULE module_;
};

constexpr int kAllNestedCatches = 11111;

// What the function returned at last in each thread.
std::vector<int> InThreads(std::size_t count, int (*function)(), int repeats) {
  std::vector<int> results(count);
  std::list<quill::SystemThread> threads;
  for (int& result : results) {
    threads.emplace_back([&result, function, repeats] {
      for (int i = 0; i < repeats; ++i) result = function();
    });
  }
  threads.clear();
  return results;
}

std::size_t HeapInUse() {
  std::size_t used = 0;
  PROCESS_HEAP_ENTRY entry = {};
  const auto heap = reinterpret_cast<HANDLE>(_get_heap_handle());
  HeapLock(heap);
  while (HeapWalk(heap, &entry)) {
    if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0) used += entry.cbData;
  }
  HeapUnlock(heap);
  return used;
}

// Grows when handles are not given back.
std::uintptr_t NextHandle() {
  const HANDLE event = CreateEventA(nullptr, FALSE, FALSE, nullptr);
  CloseHandle(event);
  return reinterpret_cast<std::uintptr_t>(event);
}

// One that lives as long as this, and comes back to each call.
class OldThread {
 public:
  OldThread() {
    thread_.emplace([this] { Run(); });
  }
  OldThread(const OldThread&) = delete;
  OldThread& operator=(const OldThread&) = delete;
  ~OldThread() {
    (void)Call(nullptr);
    thread_.reset();
    CloseHandle(called_);
    CloseHandle(answered_);
  }

  int Call(int (*function)()) {
    function_ = function;
    SignalObjectAndWait(called_, answered_, INFINITE, FALSE);
    return result_;
  }

 private:
  void Run() {
    do {
      WaitForSingleObject(called_, INFINITE);
      if (function_ != nullptr) result_ = function_();
      SetEvent(answered_);
    } while (function_ != nullptr);
  }

  HANDLE called_ = CreateEventA(nullptr, FALSE, FALSE, nullptr);
  HANDLE answered_ = CreateEventA(nullptr, FALSE, FALSE, nullptr);
  int (*function_)() = nullptr;
  int result_ = 0;
  std::optional<quill::SystemThread> thread_;
};

TEST(RuntimeParts, ThreadsHandleTheirExceptionsApart) {
  const Probe probe;
  const auto results = InThreads(8, probe.Find("ProbeNestedCatches"), 200);
  EXPECT_EQ(results, std::vector<int>(8, kAllNestedCatches));
}

TEST(RuntimeParts, DestructorsThrowAndCatchWhileTheLibraryIsUnloaded) {
  int at_the_end = 0;
  std::optional<Probe> probe(std::in_place);
  probe->Find<void(int*)>("ProbeReportEndTo")(&at_the_end);
  probe.reset();
  EXPECT_EQ(at_the_end, kAllNestedCatches);
}

#ifdef SHARED_UNWINDER
TEST(RuntimeParts, ExceptionsAreCaughtWhereTheProcessHasAnotherUnwinder) {
  const HMODULE unwinder = LoadLibraryA(SHARED_UNWINDER);
  ASSERT_NE(unwinder, nullptr);
  for (int i = 0; i < 3; ++i) EXPECT_EQ(Probe().NestedCatches(), kAllNestedCatches);
}
#endif

// Windows gives a process 1,088 thread-local slots.
TEST(RuntimeParts, LoadingAndUnloadingLeavesNothingBehind) {
  std::size_t memory = 0;
  std::uintptr_t handles = 0;
  OldThread older_than_the_library;
  for (int i = 0; i < 1300; ++i) {
    const Probe probe;
    ASSERT_EQ(probe.NestedCatches(), kAllNestedCatches) << "load " << i;
    if (i % 10 == 0) {
      ASSERT_EQ(older_than_the_library.Call(probe.Find("ProbeNestedCatches")), kAllNestedCatches);
    }
    if (i % 100 == 0) InThreads(2, probe.Find("ProbeNestedCatches"), 1);
    if (i == 100) {
      memory = HeapInUse();
      handles = NextHandle();
    }
  }
  EXPECT_LT(HeapInUse(), memory + 4096);
  EXPECT_LE(NextHandle(), handles);
}

TEST(RuntimeParts, EndingThreadsLeaveNothingBehind) {
  const Probe probe;
  const auto function = probe.Find("ProbeNestedCatches");
  InThreads(4, function, 1);
  const std::size_t after_warm_up = HeapInUse();
  for (int i = 0; i < 100; ++i) InThreads(4, function, 1);
  EXPECT_LT(HeapInUse(), after_warm_up + 1024);
}

}  // namespace
