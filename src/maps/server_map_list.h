// The remote machine's own maps, as its game-settings reply lists them: three parallel lists, kept
// in one buffer so that a long list costs no allocation a map.
#pragma once

#include <cstddef>
#include <vector>

#include "support/text.h"

namespace quill {

class ServerMapList {
 public:
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

  friend void swap(ServerMapList& a, ServerMapList& b) noexcept;

 private:
  struct Span {
    std::size_t begin;
    std::size_t length;
  };
  struct Map {
    Span name;
    Span file;
    std::size_t game_type;  // where its one character lies
  };
  Text buffer_;
  std::vector<Map> maps_;
};

}  // namespace quill
