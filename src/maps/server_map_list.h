// The remote machine's own maps, as its game-settings reply lists them. Their texts lie in a few
// buffers, so that a long list costs no allocation a map.
#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "maps/map_catalogue.h"
#include "support/code_page.h"
#include "support/text.h"

namespace quill {

// The separator of lists inside a field of a reply.
inline constexpr TextView kListSeparator = u"|";

class ServerMapList {
 public:
  // Names and files without blanks around them; the game type as the remote side sent it. All is
  // valid until the next change.
  [[nodiscard]] std::span<const KnownMap> maps() const noexcept { return maps_; }

  void Clear() noexcept;
  // Appends the map that `entry` describes: a map entry text followed by one game-type character.
  // Fails as SplitMapEntry does (also on an empty text), with nothing appended.
  void AppendEntry(TextView entry);
  // The same for a field of such entries in Base64; entries of blanks only are skipped. Fails at
  // the first bad one, as Dec64To does, too; those before it are appended.
  void AppendField(TextView field, const CodePage& page);

  // The first map with exactly this file name and game type; null when there is none. The first
  // look-up after a change takes time proportional to the length of the list.
  [[nodiscard]] const KnownMap* Find(TextView file, TextView game_type) const;
  // True when a map, of any game type, has exactly this display name. Takes time as above.
  [[nodiscard]] bool HasName(TextView name) const;

 private:
  // The keys are views into the texts.
  struct Index {
    std::unordered_map<TextView, const KnownMap*> by_file;  // with the game type behind it
    std::unordered_set<TextView> names;
  };
  // For one more text, as large as that at most.
  [[nodiscard]] char16_t* MakeRoom(std::size_t size);
  // Adds the map of an entry that lies in its room; its game type then follows the file name.
  void Take(std::span<char16_t> entry);
  [[nodiscard]] const Index& FullIndex() const;

  std::vector<std::unique_ptr<char16_t[]>> texts_;
  std::vector<KnownMap> maps_;
  // Made for the first look-up. A walk would do for a rotation of 255 maps; a map list from outside
  // may have any number of lines.
  mutable Index index_;
};

}  // namespace quill
