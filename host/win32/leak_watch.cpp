// What this process holds of the system's resources, kind by kind. The system's own counters are
// asked first. Where they always answer 0, as under Wine, every possible handle is tried. Counting
// takes up to a few tenths of a second and leaves the counts as they were.
#include "host/win32/leak_watch.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <functional>

namespace quill::host {
namespace {

BOOL CALLBACK CountIfOurs(HWND window, LPARAM count) {
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  if (process == GetCurrentProcessId()) ++*reinterpret_cast<long*>(count);
  return TRUE;
}

long CountWindows() {
  long count = 0;
  EnumChildWindows(GetDesktopWindow(), &CountIfOurs, reinterpret_cast<LPARAM>(&count));
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

// Under Wine an object is known by its handle's lower half too.
long CountGdiObjects() {
  if (const DWORD count = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS)) {
    return static_cast<long>(count);
  }
  constexpr std::uintptr_t kHandles = 0x4000;
  long count = 0;
  for (std::uintptr_t value = 1; value < kHandles; ++value) {
    if (GetObjectType(reinterpret_cast<HGDIOBJ>(value)) != 0) ++count;
  }
  return count;
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
  static const auto query = reinterpret_cast<Query>(reinterpret_cast<void*>(
      GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "NtQueryInformationAtom")));
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

// The blocks in use, or their bytes.
template <bool kBytes>
long MeasureHeaps() {
  // Allocated before, so that counting does not change the heap.
  static std::array<HANDLE, 256> heaps;
  const DWORD count = std::min<DWORD>(GetProcessHeaps(heaps.size(), heaps.data()), heaps.size());
  long sum = 0;
  for (DWORD i = 0; i < count; ++i) {
    if (!HeapLock(heaps[i])) continue;
    PROCESS_HEAP_ENTRY entry = {};
    while (HeapWalk(heaps[i], &entry)) {
      if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) == 0) continue;
      sum += kBytes ? static_cast<long>(entry.cbData) : 1;
    }
    HeapUnlock(heaps[i]);
  }
  return sum;
}

// What a heap may grow by: the system uses it too now and then.
constexpr long kBytesPerBlock = 800;

constexpr Resource kResources[] = {
    {u"user objects", CountUserObjects},
    {u"GDI objects", CountGdiObjects},
    {u"kernel handles", CountKernelHandles},
    {u"uses of atoms", CountAtomUses},
    {u"thread slots", CountThreadSlots},
    {u"heap blocks", MeasureHeaps<false>, 1},
    {u"heap bytes", MeasureHeaps<true>, kBytesPerBlock},
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
