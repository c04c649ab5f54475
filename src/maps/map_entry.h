// Map entry text, the row text of the map lists: display name, " <", map file name, ">".
#pragma once

#include "support/text.h"

namespace quill {

struct MapEntry {
  Text name;
  Text file;
};

// Takes an entry apart at its last "<" (at its first character when it has none). Both texts come
// without blanks around them. The name is the entry with every occurrence of its tail, the text
// from that "<" on, taken out. Fails with kInvalidProcedureCall when nothing can follow the split
// (the last "<" ends the entry, or there is none and the entry has fewer than two characters).
[[nodiscard]] MapEntry SplitMapEntry(TextView entry);

}  // namespace quill
