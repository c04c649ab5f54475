// Taking references apart, and finding what they name.
#include "dialog/stored_map.h"

#include <utility>

#include "support/number_text.h"

namespace quill {
namespace {

constexpr TextView kSeparator = u"[-]";

}  // namespace

std::vector<TextView> SplitStoredMap(TextView text) {
  return Split(text, kSeparator);
}

Text StoredMapText(const SelectedMap& map) {
  const TextView flag = map.server_map ? u"1" : u"0";
  return Concat({Decimal(map.game_type), kSeparator, flag, kSeparator, map.file});
}

std::optional<SelectedMap> FindStoredMap(const MapLists& maps, TextView code, TextView flag,
                                         TextView file) {
  const bool server_map = ToTruth(flag);
  const TextView trimmed = TrimBlanks(file);
  Text name = maps.GetMapDisplayName(trimmed, code, server_map);
  if (name.empty()) return std::nullopt;
  return SelectedMap{std::move(name), Text(trimmed), ToInt32(code), server_map};
}

}  // namespace quill
