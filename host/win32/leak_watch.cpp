// What this process holds of the system's resources, kind by kind. The system's own counters are
// asked first. Where they always answer 0, as under Wine, the process's own tables are read, or
// every possible handle is tried. Counting takes up to a few tenths of a second and leaves the
// counts as they were.
#include "host/win32/leak_watch.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <functional>

namespace quill::host {
namespace {

template <class Function>
Function NtdllFunction(const char* name) {
  return reinterpret_cast<Function>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), name)));
}

BOOL CALLBACK CountChild(HWND, LPARAM count) {
  ++*reinterpret_cast<long*>(count);
  return TRUE;
}

BOOL CALLBACK CountIfOurs(HWND window, LPARAM count) {
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  if (process != GetCurrentProcessId()) return TRUE;
  EnumChildWindows(window, &CountChild, count);
  return CountChild(window, count);
}

long CountWindows() {
  long count = 0;
  EnumWindows(&CountIfOurs, reinterpret_cast<LPARAM>(&count));
  HWND window = nullptr;
  while ((window = FindWindowExW(HWND_MESSAGE, window, nullptr, nullptr)) != nullptr) {
    CountIfOurs(window, reinterpret_cast<LPARAM>(&count));
  }
  return count;
}

// Windows, menus, icons, pointers, accelerator tables. Under Wine a user object is known by its
// handle's lower half too, which counts up in steps of two.
long CountUserObjects() {
  if (const DWORD count = GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS)) {
    return static_cast<long>(count);
  }
  constexpr std::uintptr_t kFirst = 0x20;
  constexpr std::uintptr_t kLast = 0xFFEF;
  long count = CountWindows();
  for (std::uintptr_t value = kFirst; value <= kLast; value += 2) {
    if (IsMenu(reinterpret_cast<HMENU>(value)) ||
        CopyAcceleratorTableW(reinterpret_cast<HACCEL>(value), nullptr, 0) != 0) {
      ++count;
    } else if (ICONINFO icon; GetIconInfo(reinterpret_cast<HICON>(value), &icon)) {
      ++count;
      DeleteObject(icon.hbmColor);
      DeleteObject(icon.hbmMask);
    }
  }
  return count;
}

const char* PointerAt(const char* place) {
  std::uint64_t pointer = 0;  // of the wide form, in a 32-bit process too
  std::memcpy(&pointer, place, sizeof pointer);
  return reinterpret_cast<const char*>(static_cast<std::uintptr_t>(pointer));
}

// The process's 64-bit block; a 32-bit process reaches it through its thread's.
const char* WideProcessBlock() {
  using Function = const char*(WINAPI*)();
  if constexpr (sizeof(void*) == 8) return NtdllFunction<Function>("RtlGetCurrentPeb")();
  std::uint32_t thread_block = 0;
  std::memcpy(&thread_block, NtdllFunction<Function>("NtCurrentTeb")() + 0xF70,
              sizeof thread_block);
  return PointerAt(reinterpret_cast<const char*>(static_cast<std::uintptr_t>(thread_block)) + 0x60);
}

long CountGdiObjects() {
  if (const DWORD count = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS)) {
    return static_cast<long>(count);
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
  return static_cast<long>(
      std::count_if(table, table + kEntries, [](const Entry& entry) { return entry.type != 0; }));
}

long CountKernelHandles() {
  DWORD told = 0;
  if (GetProcessHandleCount(GetCurrentProcess(), &told) && told != 0) {
    return static_cast<long>(told);
  }
  // They count up in steps of four, and a new one fills the first gap.
  constexpr std::uintptr_t kLongestGap = 4 * 512;
  long count = 0;
  std::uintptr_t last = 0;
  for (std::uintptr_t value = 4; value <= last + kLongestGap; value += 4) {
    DWORD flags = 0;
    if (!GetHandleInformation(reinterpret_cast<HANDLE>(value), &flags)) continue;
    ++count;
    last = value;
  }
  return count;
}

// A name that is given out twice is one atom, so uses are counted.
long CountAtomUses() {
  struct Information {
    USHORT uses;
    USHORT flags;
    USHORT name_length;
    WCHAR name[256];
  };
  using Query = LONG(WINAPI*)(ATOM, int, void*, ULONG, ULONG*);
  static const auto query = NtdllFunction<Query>("NtQueryInformationAtom");
  // They count up by one, and a new one fills the first gap.
  constexpr unsigned kLongestGap = 1024;
  long uses = 0;
  unsigned last = 0xC000;
  for (unsigned atom = last; atom <= std::min(last + kLongestGap, 0xFFFFu); ++atom) {
    Information information = {};
    if (query(static_cast<ATOM>(atom), 0, &information, sizeof information, nullptr) < 0) continue;
    uses += information.uses;
    last = atom;
  }
  return uses;
}

long CountThreadSlots() {
  constexpr long kSlots = 1088;
  std::vector<DWORD> free;
  free.reserve(kSlots);
  for (DWORD slot; (slot = TlsAlloc()) != TLS_OUT_OF_INDEXES;) free.push_back(slot);
  for (const DWORD slot : free) TlsFree(slot);
  return kSlots - static_cast<long>(free.size());
}

template <class Measure>
long SumOfHeapBlocks(const Measure& measure) {
  // Allocated before, so that counting does not change the heap.
  static std::array<HANDLE, 256> heaps;
  const DWORD count = std::min<DWORD>(GetProcessHeaps(heaps.size(), heaps.data()), heaps.size());
  long sum = 0;
  for (DWORD i = 0; i < count; ++i) {
    if (!HeapLock(heaps[i])) continue;
    PROCESS_HEAP_ENTRY entry = {};
    while (HeapWalk(heaps[i], &entry)) {
      if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0) sum += measure(entry);
    }
    HeapUnlock(heaps[i]);
  }
  return sum;
}

long CountHeapBlocks() {
  return SumOfHeapBlocks([](const PROCESS_HEAP_ENTRY&) { return 1L; });
}

long CountHeapBytes() {
  return SumOfHeapBlocks(
      [](const PROCESS_HEAP_ENTRY& entry) { return static_cast<long>(entry.cbData); });
}

// What a heap may grow by: the system uses it too now and then.
constexpr long kBytesPerBlock = 800;

constexpr Resource kResources[] = {
    {u"user objects", CountUserObjects},
    {u"GDI objects", CountGdiObjects},
    {u"kernel handles", CountKernelHandles},
    {u"uses of atoms", CountAtomUses},
    {u"thread slots", CountThreadSlots},
    {u"heap blocks", CountHeapBlocks, 1},
    {u"heap bytes", CountHeapBytes, kBytesPerBlock},
};

void CountResources(std::vector<long>& counts) {
  std::ranges::transform(kResources, counts.begin(),
                         [](const Resource& resource) { return resource.count(); });
}

constexpr int kSamples = 10;

}  // namespace

std::span<const Resource> Resources() noexcept {
  return kResources;
}

// All samples are allocated here, so that taking one does not change the heap.
LeakWatch::LeakWatch(int cycles)
    : cycles_(cycles), samples_(kSamples, std::vector<long>(std::size(kResources))) {
  CountResources(samples_.front());  // what the first count leaves behind is no leak
}

void LeakWatch::CycleDone() {
  ++done_;
  // The next of the equal steps after the one that warms up.
  if (taken_ < kSamples && static_cast<long long>(done_) * kSamples >= (taken_ + 1LL) * cycles_) {
    CountResources(samples_[static_cast<std::size_t>(taken_++)]);
  }
}

std::vector<LeakWatch::Course> LeakWatch::Courses() const {
  const auto middle = samples_.begin() + kSamples / 2;
  std::vector<Course> courses;
  for (std::size_t at = 0; at < std::size(kResources); ++at) {
    const auto count = [at](const std::vector<long>& sample) { return sample[at]; };
    const long before = (*std::ranges::min_element(samples_.begin(), middle, {}, count))[at];
    const long after = (*std::ranges::min_element(middle, samples_.end(), {}, count))[at];
    const long allowance = (10 + std::min(cycles_ / 25, 5)) * kResources[at].allowance;
    const bool rises = std::ranges::adjacent_find(middle, samples_.end(), std::greater_equal(),
                                                  count) == samples_.end();
    courses.push_back({kResources[at].name, before, after,
                       after > before && (rises || after - before > allowance)});
  }
  return courses;
}

}  // namespace quill::host
