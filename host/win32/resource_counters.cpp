#include "host/win32/resource_counters.h"

#include <windows.h>

#include <psapi.h>

#include <algorithm>
#include <cstring>
#include <utility>
#include <vector>

namespace quill::host {
namespace {

constexpr TextView kNames[kResourceCount] = {
    u"windows",       u"menus",        u"user objects", u"GDI objects", u"kernel handles",
    u"uses of atoms", u"thread slots", u"modules",      u"heap blocks", u"heap bytes"};

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

struct UserObjects {
  long menus = 0;
  long others = 0;  // icons, pointers, tables of shortcuts
};

// Wine knows a user object also by its handle's lower half, which counts up in steps of two.
UserObjects TryUserHandles() {
  constexpr std::uintptr_t kFirst = 0x20;
  constexpr std::uintptr_t kLast = 0xFFEF;
  UserObjects found;
  for (std::uintptr_t value = kFirst; value <= kLast; value += 2) {
    if (IsMenu(reinterpret_cast<HMENU>(value))) {
      ++found.menus;
    } else if (CopyAcceleratorTableW(reinterpret_cast<HACCEL>(value), nullptr, 0) != 0) {
      ++found.others;
    } else if (ICONINFO icon; GetIconInfo(reinterpret_cast<HICON>(value), &icon)) {
      ++found.others;
      DeleteObject(icon.hbmColor);
      DeleteObject(icon.hbmMask);
    }
  }
  return found;
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

long CountModules() {
  DWORD bytes = 0;
  HMODULE first = nullptr;
  EnumProcessModules(GetCurrentProcess(), &first, sizeof first, &bytes);
  return static_cast<long>(bytes / sizeof first);
}

struct HeapUse {
  long blocks = 0;
  long bytes = 0;
};

HeapUse MeasureHeaps() {
  // Room that is set aside before, so that the looking is not seen.
  static std::array<HANDLE, 256> heaps;
  const DWORD count =
      std::min<DWORD>(GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data()),
                      static_cast<DWORD>(heaps.size()));
  HeapUse use;
  for (DWORD i = 0; i < count; ++i) {
    if (!HeapLock(heaps[i])) continue;
    PROCESS_HEAP_ENTRY entry = {};
    while (HeapWalk(heaps[i], &entry)) {
      if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) == 0) continue;
      ++use.blocks;
      use.bytes += static_cast<long>(entry.cbData);
    }
    HeapUnlock(heaps[i]);
  }
  return use;
}

}  // namespace

TextView ResourceName(Resource resource) noexcept {
  return kNames[static_cast<std::size_t>(resource)];
}

ResourceCounts CountResources() {
  ResourceCounts counts = {};
  const auto put = [&](Resource resource, long count) {
    counts[static_cast<std::size_t>(resource)] = count;
  };
  const HeapUse heaps = MeasureHeaps();
  put(Resource::kHeapBlocks, heaps.blocks);
  put(Resource::kHeapBytes, heaps.bytes);
  const long windows = CountWindows();
  put(Resource::kWindows, windows);
  if (const DWORD told = GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS)) {
    put(Resource::kUserObjects, static_cast<long>(told));
  } else {
    const UserObjects tried = TryUserHandles();
    put(Resource::kMenus, tried.menus);
    put(Resource::kUserObjects, windows + tried.menus + tried.others);
  }
  put(Resource::kGdiObjects, CountGdiObjects());
  put(Resource::kKernelHandles, CountKernelHandles());
  put(Resource::kAtomUses, CountAtomUses());
  put(Resource::kThreadSlots, CountThreadSlots());
  put(Resource::kModules, CountModules());
  return counts;
}

}  // namespace quill::host
