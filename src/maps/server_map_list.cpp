#include "maps/server_map_list.h"

#include <utility>

#include "maps/map_entry.h"
#include "support/runtime_error.h"

namespace quill {

const ServerMapList::Map& ServerMapList::At(int position) const {
  if (position < 1 || position > Count()) throw RuntimeError(ErrorNumber::kSubscriptOutOfRange);
  return maps_[static_cast<std::size_t>(position) - 1];
}

TextView ServerMapList::ServerMapNames(int position) const {
  const Map& map = At(position);
  return View(map.name_begin, map.name_length);
}

TextView ServerMapList::ServerMapFiles(int position) const {
  const Map& map = At(position);
  return View(map.file_begin, map.file_length);
}

TextView ServerMapList::ServerMapGameTypes(int position) const {
  const Map& map = At(position);
  return View(map.file_begin + map.file_length, 1);
}

void ServerMapList::Clear() noexcept {
  buffer_.clear();
  maps_.clear();
  by_file_.Clear();
  by_name_.Clear();
}

void ServerMapList::AppendEntry(TextView entry) {
  if (entry.empty()) throw RuntimeError(ErrorNumber::kInvalidProcedureCall);
  const char16_t game_type = entry.back();
  entry.remove_suffix(1);
  const MapEntrySplit split = FindMapEntrySplit(entry);

  const std::size_t begin = buffer_.size();
  try {
    AppendWithoutTail(buffer_, entry, split.tail);
    const TextView untrimmed = TextView(buffer_).substr(begin);
    const TextView name = TrimBlanks(untrimmed);
    // Of blanks only, the name has no place of its own.
    const std::size_t name_begin =
        name.empty() ? begin : static_cast<std::size_t>(name.data() - buffer_.data());
    const Map map{name_begin, name.size(), buffer_.size(), split.file.size()};
    buffer_.append(split.file);
    buffer_.push_back(game_type);
    maps_.push_back(map);
  } catch (...) {
    buffer_.resize(begin);
    throw;
  }
}

int ServerMapList::PositionOfFile(TextView file, TextView game_type) const {
  if (game_type.size() != 1) return 0;
  const auto key_of = [this](int row) {
    const Map& map = maps_[static_cast<std::size_t>(row)];
    return View(map.file_begin, map.file_length + 1);
  };
  if (!by_file_.IsBuiltFor(Count())) by_file_.Build(Count(), key_of);
  return by_file_.Find(Concat({file, game_type}), key_of) + 1;
}

bool ServerMapList::HasName(TextView name) const {
  const auto name_of = [this](int row) {
    const Map& map = maps_[static_cast<std::size_t>(row)];
    return View(map.name_begin, map.name_length);
  };
  if (!by_name_.IsBuiltFor(Count())) by_name_.Build(Count(), name_of);
  return by_name_.Find(name, name_of) >= 0;
}

void swap(ServerMapList& a, ServerMapList& b) noexcept {
  using std::swap;
  swap(a.buffer_, b.buffer_);
  swap(a.maps_, b.maps_);
  swap(a.by_file_, b.by_file_);
  swap(a.by_name_, b.by_name_);
}

}  // namespace quill
