// The remote machine's own maps, as its game-settings reply lists them: three parallel lists, kept
// in one buffer so that a long list costs no allocation a map.
#pragma once

#include <cstddef>
#include <span>
#include <unordered_map>
#include <vector>

#include "support/code_page.h"
#include "support/text.h"
#include "support/unset_buffer.h"

namespace quill {

class ServerMapList {
 public:
  ServerMapList() = default;
  ServerMapList(ServerMapList&&) = default;
  ServerMapList& operator=(ServerMapList&&) = default;

  [[nodiscard]] int Count() const noexcept { return static_cast<int>(maps_.size()); }
  // Positions are 1-based, from 1 to Count(); others fail with kSubscriptOutOfRange. The views are
  // valid until the next change.
  [[nodiscard]] TextView ServerMapNames(int position) const;
  [[nodiscard]] TextView ServerMapFiles(int position) const;
  // One character as the remote side sent it, usually '0' to '8'.
  [[nodiscard]] TextView ServerMapGameTypes(int position) const;

  void Clear() noexcept;
  // Appends the map that `entry` describes: a map entry text followed by one game-type character.
  // Fails as SplitMapEntry does (also on an empty text), with nothing appended.
  void AppendEntry(TextView entry);
  // The same for some entries in Base64, together, which is quicker: a text that is read just after
  // it was written makes the processor wait. Fails at the first bad one, as Dec64To does, too;
  // those before it are appended.
  void AppendEncodedEntries(std::span<const TextView> entries, const CodePage& page);
  // Makes room for entries that are so long together in Base64, so that none of them has to.
  void Reserve(std::size_t encoded_size);

  // The position of the first map with exactly this file name and game type; 0 when there is none.
  // The first look-up after a change takes time proportional to the length of the list.
  [[nodiscard]] int PositionOfFile(TextView file, TextView game_type) const;
  // True when a map, of any game type, has exactly this display name. Takes time as above.
  [[nodiscard]] bool HasName(TextView name) const;

 private:
  struct Map {
    // One whose name is a whole entry yet.
    Map(std::size_t begin, std::size_t length) noexcept : name_begin(begin), name_length(length) {}

    std::size_t name_begin;
    std::size_t name_length;
    std::size_t file_begin = 0;
    std::size_t file_length = 0;  // its game-type character follows
  };
  [[nodiscard]] const Map& At(int position) const;
  [[nodiscard]] TextView View(std::size_t begin, std::size_t length) const noexcept {
    return {buffer_.data() + begin, length};
  }

  // From that 0-based row on, the name is the whole entry yet. Drops the rows from the first bad
  // entry on.
  void TakeApartFrom(std::size_t first);
  void TakeApart(Map& map);
  void ForgetPositions() noexcept;

  // Each map's entry, decoded and taken apart where it lies.
  UnsetBuffer<char16_t> buffer_;
  std::vector<Map> maps_;
  // The positions of the first maps, made for the first look-up, by views into the buffer. A walk
  // would do for a rotation of 255 maps; a map list from outside may have any number of lines.
  using FirstPositions = std::unordered_map<TextView, int>;
  template <class KeyOf>
  int Look(FirstPositions& known, TextView key, KeyOf key_of) const;
  mutable FirstPositions by_file_;  // by file name and game type as they lie in the buffer
  mutable FirstPositions by_name_;
};

}  // namespace quill
