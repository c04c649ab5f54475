// Exceptions, statics and memory of a library that brings parts of the C++ runtime itself.
#include <gtest/gtest.h>
#include <malloc.h>
#include <windows.h>

#include <cstdint>
#include <vector>

namespace {

class Probe {
 public:
  Probe() : module_(LoadLibraryA(RUNTIME_PROBE)) {
    if (module_ == nullptr) ADD_FAILURE() << RUNTIME_PROBE << ": " << GetLastError();
  }
  Probe(const Probe&) = delete;
  Probe& operator=(const Probe&) = delete;
  ~Probe() { FreeLibrary(module_); }

  using Function = int (*)();
  Function Find(const char* name) const {
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module_, name)));
  }
  int Call(const char* name) const { return Find(name)(); }

 private:
  HMODULE module_;
};

constexpr int kAllNestedCatches = 11111;
constexpr int kAllLibraryExceptions = 111;

struct Job {
  Probe::Function function;
  int repeats;
  int result;
};

DWORD WINAPI RunJob(void* argument) {
  auto& job = *static_cast<Job*>(argument);
  for (int i = 0; i < job.repeats; ++i) job.result = job.function();
  return 0;
}

std::vector<int> InThreads(int count, Probe::Function function, int repeats) {
  std::vector<Job> jobs(static_cast<std::size_t>(count), Job{function, repeats, 0});
  std::vector<HANDLE> threads;
  for (Job& job : jobs) threads.push_back(CreateThread(nullptr, 0, RunJob, &job, 0, nullptr));
  std::vector<int> results;
  for (std::size_t i = 0; i < threads.size(); ++i) {
    WaitForSingleObject(threads[i], INFINITE);
    CloseHandle(threads[i]);
    results.push_back(jobs[i].result);
  }
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

TEST(RuntimeParts, ExceptionsNestAndSeeTheOnesOnTheirWay) {
  const Probe probe;
  EXPECT_EQ(probe.Call("ProbeNestedCatches"), kAllNestedCatches);
}

TEST(RuntimeParts, TheStandardLibraryThrowsItsOwnKinds) {
  const Probe probe;
  EXPECT_EQ(probe.Call("ProbeLibraryExceptions"), kAllLibraryExceptions);
}

TEST(RuntimeParts, HandlingAnExceptionKeepsTheLastError) {
  const Probe probe;
  EXPECT_EQ(probe.Call("ProbeLastErrorKept"), 1);
}

TEST(RuntimeParts, ThreadsHandleTheirExceptionsApart) {
  const Probe probe;
  const auto results = InThreads(8, probe.Find("ProbeNestedCatches"), 200);
  EXPECT_EQ(results, std::vector<int>(8, kAllNestedCatches));
}

TEST(RuntimeParts, OneOfManyThreadsMakesAStaticEvenAfterFailures) {
  const Probe probe;
  const auto results = InThreads(12, probe.Find("ProbeSharedStatic"), 1);
  EXPECT_EQ(results, std::vector<int>(12, 1));
}

// Windows gives a process 1,088 thread-local slots.
TEST(RuntimeParts, LoadingAndUnloadingLeavesNothingBehind) {
  std::size_t after_warm_up = 0;
  for (int i = 0; i < 1300; ++i) {
    const Probe probe;
    ASSERT_EQ(probe.Call("ProbeNestedCatches"), kAllNestedCatches) << "load " << i;
    if (i % 100 == 0) InThreads(2, probe.Find("ProbeLibraryExceptions"), 1);
    if (i == 100) after_warm_up = HeapInUse();
  }
  EXPECT_LT(HeapInUse(), after_warm_up + 4096);
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
