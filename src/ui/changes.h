// Which sides of a control have changed since its peer was last told.
#pragma once

#include <cstdint>

namespace quill::ui {

class Changes {
 public:
  enum Bit : std::uint32_t {
    kBounds = 1u << 0,
    kEnabled = 1u << 1,
    kVisible = 1u << 2,
    kTooltip = 1u << 3,
    kText = 1u << 4,       // text, caption
    kValue = 1u << 5,      // check state
    kRows = 1u << 6,       // all rows or items are new
    kRowsAdded = 1u << 7,  // rows were added behind those that the peer knows
    kSelection = 1u << 8,  // chosen row, selected rows, chosen tab
    kTopRow = 1u << 9,
    kPicture = 1u << 10,  // the picture
    kOrder = 1u << 11,    // came to the front of its siblings
    kPointer = 1u << 12,
    kColour = 1u << 13,   // colour, how a picture box holds its drawing
    kRowData = 1u << 14,  // numbers of rows that the peer knows already
    kTabIndex = 1u << 15,
    kFocus = 1u << 16,         // took the keyboard focus; a form: no control of it has the focus
    kReachedByKey = 1u << 17,  // with kFocus: a text is selected whole, and the focus is marked
    kTurnBegins = 1u << 18,    // a tab strip: its owner is about to change the pages
    kTurnEnds = 1u << 19,      // and has done so
  };

  constexpr Changes() = default;
  constexpr Changes(Bit bit) : bits_(bit) {}  // NOLINT(google-explicit-constructor): a set of one
  [[nodiscard]] static constexpr Changes Everything() { return FromBits(0xFFFFFFFFu); }

  // One of these at least.
  [[nodiscard]] constexpr bool Has(Changes changes) const { return (bits_ & changes.bits_) != 0; }
  [[nodiscard]] constexpr bool Any() const { return bits_ != 0; }
  friend constexpr Changes operator|(Changes a, Changes b) { return FromBits(a.bits_ | b.bits_); }
  constexpr Changes& operator|=(Changes other) {
    bits_ |= other.bits_;
    return *this;
  }

 private:
  static constexpr Changes FromBits(std::uint32_t bits) {
    Changes changes;
    changes.bits_ = bits;
    return changes;
  }
  std::uint32_t bits_ = 0;
};
constexpr Changes operator|(Changes::Bit a, Changes::Bit b) {
  return Changes(a) | Changes(b);
}

}  // namespace quill::ui
