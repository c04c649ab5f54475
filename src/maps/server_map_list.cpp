#include "maps/server_map_list.h"

#include <algorithm>
#include <utility>

#include "maps/map_entry.h"
#include "support/base64.h"
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
  ForgetPositions();
}

void ServerMapList::Reserve(std::size_t encoded_size) {
  constexpr std::size_t kUsualEntry = 32;
  buffer_.reserve(buffer_.size() + Dec64Room(encoded_size));
  maps_.reserve(maps_.size() + encoded_size / kUsualEntry);
}

void ServerMapList::AppendEntry(TextView entry) {
  ForgetPositions();
  const std::size_t begin = buffer_.size();
  buffer_.insert(buffer_.end(), entry.begin(), entry.end());
  maps_.emplace_back(begin, entry.size());
  TakeApartFrom(maps_.size() - 1);
}

void ServerMapList::AppendEncodedEntries(std::span<const TextView> entries, const CodePage& page) {
  ForgetPositions();
  const std::size_t first = maps_.size();
  std::size_t end = buffer_.size();
  std::size_t room = 0;
  for (const TextView entry : entries) room += Dec64Room(entry.size());
  buffer_.resize(end + room);
  try {
    for (const TextView entry : entries) {
      const std::size_t length = Dec64To(entry, page, buffer_.data() + end);
      maps_.emplace_back(end, length);
      end += length;
    }
  } catch (...) {
    buffer_.resize(end);
    TakeApartFrom(first);
    throw;
  }
  buffer_.resize(end);
  TakeApartFrom(first);
}

void ServerMapList::TakeApartFrom(std::size_t first) {
  for (; first != maps_.size(); ++first) {
    try {
      TakeApart(maps_[first]);
    } catch (...) {
      maps_.erase(maps_.begin() + static_cast<std::ptrdiff_t>(first), maps_.end());
      throw;
    }
  }
}

void ServerMapList::TakeApart(Map& map) {
  if (map.name_length == 0) throw RuntimeError(ErrorNumber::kInvalidProcedureCall);
  char16_t* const entry = buffer_.data() + map.name_begin;
  const std::size_t length = map.name_length - 1;
  const char16_t game_type = entry[length];
  const MapEntrySplit split = FindMapEntrySplit(TextView(entry, length));
  const TextView name = TrimBlanks(TextView(entry, TakeOutTail(entry, split)));
  map.name_begin = static_cast<std::size_t>(name.data() - buffer_.data());
  map.name_length = name.size();
  map.file_begin = static_cast<std::size_t>(split.file.data() - buffer_.data());
  map.file_length = split.file.size();
  // At least the last character of the tail lies behind the file name.
  buffer_[map.file_begin + map.file_length] = game_type;
}

template <class KeyOf>
int ServerMapList::Look(FirstPositions& known, TextView key, KeyOf key_of) const {
  if (known.empty()) {
    FirstPositions all;
    for (int position = 1; position <= Count(); ++position) {
      all.try_emplace(key_of(At(position)), position);
    }
    known = std::move(all);
  }
  const auto found = known.find(key);
  return found == known.end() ? 0 : found->second;
}

int ServerMapList::PositionOfFile(TextView file, TextView game_type) const {
  if (game_type.size() != 1) return 0;
  return Look(by_file_, Concat({file, game_type}),
              [this](const Map& map) { return View(map.file_begin, map.file_length + 1); });
}

bool ServerMapList::HasName(TextView name) const {
  return Look(by_name_, name,
              [this](const Map& map) { return View(map.name_begin, map.name_length); }) != 0;
}

void ServerMapList::ForgetPositions() noexcept {
  by_file_.clear();
  by_name_.clear();
}

}  // namespace quill
