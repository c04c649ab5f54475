// What this process holds of the system's resources, kind by kind, so that a leak can be seen.
//
// The system's own counters are asked first. Where they always answer nothing, as under Wine, the
// process's own tables are read, or every possible handle is tried. Counting takes up to a few
// tenths of a second and leaves the counts as they were.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "support/text.h"

namespace quill::host {

enum class Resource : std::uint8_t {
  kWindows,        // of this process, child and message-only windows included
  kMenus,          // none are seen where the system counts user objects itself
  kUserObjects,    // windows, menus, icons, pointers, tables of shortcuts
  kGdiObjects,     // device contexts, fonts, bitmaps, brushes, regions ...
  kKernelHandles,  // files, events, registry keys, threads ...
  kAtomUses,       // of the global atoms, which names of window properties and classes are too
  kThreadSlots,    // thread-local slots of the process
  kModules,        // loaded libraries and programs
  kHeapBlocks,     // in use, of all heaps of the process
  kHeapBytes,
};
inline constexpr std::size_t kResourceCount = 10;

using ResourceCounts = std::array<long, kResourceCount>;

// "windows", "GDI objects" and so on.
[[nodiscard]] TextView ResourceName(Resource resource) noexcept;

[[nodiscard]] ResourceCounts CountResources();

}  // namespace quill::host
