// The rotation: the selected maps in the order in which the server will play them.
#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include "support/text.h"

namespace quill {

struct SelectedMap {
  Text name;
  Text file;
  std::int32_t game_type = 0;
  bool server_map = false;

  friend bool operator==(const SelectedMap&, const SelectedMap&) = default;
};

// The adding operations of the dialog refuse to go beyond; the loaders do not.
inline constexpr int kRotationLimit = 255;

enum class RowMove : std::uint8_t { kUp, kDown, kToTop, kToEnd, kOut };
// The 0-based rows, in their new order, of a list whose marked ones move by one, or to its top or
// end, and keep their order, or are taken out.
[[nodiscard]] std::vector<int> OrderAfter(RowMove move, const std::vector<bool>& marked_rows);

class SelectedMapList {
 public:
  [[nodiscard]] int Count() const noexcept { return static_cast<int>(maps_.size()); }
  // Positions are 1-based, from 1 to Count(); others fail with kInvalidProcedureCall.
  [[nodiscard]] const SelectedMap& At(int position) const;

  void Clear() noexcept { maps_.clear(); }
  void Append(SelectedMap map) { maps_.push_back(std::move(map)); }
  // Puts the element of each 0-based row in `order` at its place there; those that it does not have
  // are removed. On failure the list is unchanged.
  void Reorder(const std::vector<int>& order);
  // Takes over the new order or contents.
  void Replace(std::vector<SelectedMap> maps) noexcept { maps_ = std::move(maps); }
  [[nodiscard]] const std::vector<SelectedMap>& maps() const noexcept { return maps_; }

 private:
  std::vector<SelectedMap> maps_;
};

}  // namespace quill
