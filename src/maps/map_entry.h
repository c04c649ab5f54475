// Map entry text, the row text of the map lists: display name, " <", map file name, ">". Joining
// it, and taking it apart.
#pragma once

#include <algorithm>
#include <span>

#include "support/runtime_error.h"
#include "support/text.h"

namespace quill {

[[nodiscard]] inline Text JoinMapEntry(TextView name, TextView file) {
  return Concat({name, u" <", file, u">"});
}

// Both without blanks around them.
struct MapEntryParts {
  TextView name;
  TextView file;
};

// Takes an entry apart where it lies, at its last "<" (at its first character when it has none).
// The name is the entry with every occurrence of its tail, the text from that "<" on, taken out.
// Both parts are views into the entry, whose other characters are changed; at least one of them
// lies behind the file name. Fails with kInvalidProcedureCall when nothing can follow the split
// (the last "<" ends the entry, or there is none and the entry has fewer than two characters).
//
// In a header, because it is done for each of a remote machine's maps, of which there may be very
// many.
[[nodiscard]] inline MapEntryParts TakeMapEntryApart(std::span<char16_t> entry) {
  const TextView text(entry.data(), entry.size());
  const std::size_t sign = text.rfind(u'<');
  const TextView tail = text.substr(sign == TextView::npos ? 0 : sign);
  if (tail.size() < 2) throw RuntimeError(ErrorNumber::kInvalidProcedureCall);
  TextView name = text.substr(0, text.size() - tail.size());
  if (name.find(tail) != TextView::npos) {
    const Text kept = ReplaceAll(name, tail, u"");
    std::ranges::copy(kept, entry.begin());
    name = name.substr(0, kept.size());
  }
  return {TrimBlanks(name), TrimBlanks(tail.substr(1, tail.size() - 2))};
}

struct MapEntry {
  Text name;
  Text file;
};

// The same with a copy of the entry. Fails alike.
[[nodiscard]] inline MapEntry SplitMapEntry(TextView entry) {
  Text copy(entry);
  const MapEntryParts parts = TakeMapEntryApart(copy);
  return {Text(parts.name), Text(parts.file)};
}

}  // namespace quill
