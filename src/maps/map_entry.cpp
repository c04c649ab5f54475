#include "maps/map_entry.h"

#include "support/runtime_error.h"

namespace quill {

MapEntrySplit FindMapEntrySplit(TextView entry) {
  const std::size_t last = entry.rfind(u'<');
  const std::size_t begin = last == TextView::npos ? 0 : last;
  const TextView tail = entry.substr(begin);
  if (tail.size() < 2) throw RuntimeError(ErrorNumber::kInvalidProcedureCall);
  return {tail, TrimBlanks(tail.substr(1, tail.size() - 2))};
}

void AppendWithoutTail(Text& target, TextView entry, TextView tail) {
  for (std::size_t found; (found = entry.find(tail)) != TextView::npos;) {
    target.append(entry.substr(0, found));
    entry.remove_prefix(found + tail.size());
  }
  target.append(entry);
}

MapEntry SplitMapEntry(TextView entry) {
  const MapEntrySplit split = FindMapEntrySplit(entry);
  Text name;
  AppendWithoutTail(name, entry, split.tail);
  return {Text(TrimBlanks(name)), Text(split.file)};
}

}  // namespace quill
