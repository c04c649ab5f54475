// Map entry text, the row text of the map lists: display name, " <", map file name, ">". Joining
// it, and taking it apart.
#pragma once

#include <cstddef>

#include "support/find_unit.h"
#include "support/runtime_error.h"
#include "support/text.h"

namespace quill {

[[nodiscard]] inline Text JoinMapEntry(TextView name, TextView file) {
  return Concat({name, u" <", file, u">"});
}

struct MapEntry {
  Text name;
  Text file;
};

// Takes an entry apart at its last "<" (at its first character when it has none). Both texts come
// without blanks around them. The name is the entry with every occurrence of its tail, the text
// from that "<" on, taken out. Fails with kInvalidProcedureCall when nothing can follow the split
// (the last "<" ends the entry, or there is none and the entry has fewer than two characters).
[[nodiscard]] inline MapEntry SplitMapEntry(TextView entry);

// Taking an entry apart where it lies, without a copy of anything. In a header, because it is done
// for each of a remote machine's maps, of which there may be very many.

struct MapEntrySplit {
  TextView tail;       // from the last "<" to the end, never empty
  TextView file;       // without blanks around it
  bool tail_is_alone;  // it occurs nowhere else for certain
};

// Fails as SplitMapEntry does.
[[nodiscard]] inline MapEntrySplit FindMapEntrySplit(TextView entry) {
  const char16_t* const end = entry.data() + entry.size();
  const char16_t* const first = FindUnit(entry.data(), end, u'<');
  const char16_t* last = first == end ? entry.data() : first;
  for (const char16_t* at = first; at != end; at = FindUnit(at + 1, end, u'<')) last = at;
  const TextView tail(last, end);
  if (tail.size() < 2) throw RuntimeError(ErrorNumber::kInvalidProcedureCall);
  return {tail, TrimBlanks(tail.substr(1, tail.size() - 2)), first == last};
}

// Takes every occurrence of the tail out of the entry where it lies, and returns how long what is
// left is, blanks included. The last occurrence stays readable behind it.
[[nodiscard]] inline std::size_t TakeOutTail(char16_t* entry, const MapEntrySplit& split) noexcept {
  const auto before_last = static_cast<std::size_t>(split.tail.data() - entry);
  if (split.tail_is_alone) return before_last;
  std::size_t kept = 0;
  for (TextView rest(entry, before_last + split.tail.size()); !rest.empty();) {
    const std::size_t found = rest.find(split.tail);
    TextView::traits_type::move(entry + kept, rest.data(), found);
    kept += found;
    rest.remove_prefix(found + split.tail.size());
  }
  return kept;
}

inline MapEntry SplitMapEntry(TextView entry) {
  Text copy(entry);
  const MapEntrySplit split = FindMapEntrySplit(copy);
  const TextView name(copy.data(), TakeOutTail(copy.data(), split));
  return {Text(TrimBlanks(name)), Text(split.file)};
}

}  // namespace quill
