// Reads the remote machine's maps. Each entry is decoded and taken apart where it stays.
#include "maps/server_map_list.h"

#include <algorithm>
#include <utility>

#include "maps/map_entry.h"
#include "support/base64.h"
#include "support/runtime_error.h"

namespace quill {

void ServerMapList::Clear() noexcept {
  index_ = {};
  maps_.clear();
  texts_.clear();
}

void ServerMapList::AppendEntry(TextView entry) {
  char16_t* const room = MakeRoom(entry.size());
  std::ranges::copy(entry, room);
  Take({room, entry.size()});
}

void ServerMapList::AppendField(TextView field, const CodePage& page) {
  // Characters; a guess for reserving, on which only time and memory depend.
  constexpr std::size_t kUsualEntry = 32;
  // For the whole field: entries that have been taken must not move.
  char16_t* room = MakeRoom(Dec64Room(field.size()));
  maps_.reserve(maps_.size() + field.size() / kUsualEntry);
  PieceCursor entries(field, kListSeparator);
  for (TextView entry; entries.Next(entry);) {
    if (IsBlank(entry)) continue;
    const std::size_t size = Dec64To(entry, page, room);
    Take({room, size});
    room += size;
  }
}

// Every text has a buffer of its own, which never moves: names, files and the index are views into
// it, also after the list itself has been moved.
char16_t* ServerMapList::MakeRoom(std::size_t size) {
  index_ = {};
  return texts_.emplace_back(std::make_unique_for_overwrite<char16_t[]>(size)).get();
}

void ServerMapList::Take(std::span<char16_t> entry) {
  if (entry.empty()) throw RuntimeError(ErrorNumber::kInvalidProcedureCall);
  const char16_t game_type = entry.back();
  const MapEntryParts parts = TakeMapEntryApart(entry.first(entry.size() - 1));
  // The index finds a map by file name and game type as one text.
  entry[static_cast<std::size_t>(parts.file.data() + parts.file.size() - entry.data())] = game_type;
  maps_.push_back({parts.name, parts.file, game_type});
}

const ServerMapList::Index& ServerMapList::FullIndex() const {
  if (index_.names.empty()) {
    Index index;
    for (const KnownMap& map : maps_) {
      // Of equal maps the first one stays, as a walk through the list would find it.
      index.by_file.try_emplace({map.file.data(), map.file.size() + 1}, &map);
      index.names.insert(map.name);
    }
    index_ = std::move(index);
  }
  return index_;
}

const KnownMap* ServerMapList::Find(TextView file, TextView game_type) const {
  if (game_type.size() != 1) return nullptr;
  const auto& by_file = FullIndex().by_file;
  const auto found = by_file.find(Concat({file, game_type}));
  return found == by_file.end() ? nullptr : found->second;
}

bool ServerMapList::HasName(TextView name) const {
  return FullIndex().names.contains(name);
}

}  // namespace quill
