#include "maps/map_entry.h"

namespace quill {

MapEntry SplitMapEntry(TextView entry) {
  Text copy(entry);
  const MapEntrySplit split = FindMapEntrySplit(copy);
  const TextView name(copy.data(), TakeOutTail(copy.data(), split));
  return {Text(TrimBlanks(name)), Text(split.file)};
}

}  // namespace quill
