// Taking over what a control shows, and telling it as text.
#include "headless/mirror_peer.h"

#include <algorithm>
#include <utility>

#include "headless/shown_words.h"
#include "headless/spared_allocations.h"
#include "support/number_text.h"
#include "support/runtime_error.h"
#include "ui/controls.h"
#include "ui/form.h"
#include "ui/list_box.h"

namespace quill::headless {
namespace {

using ui::Changes;
using ui::ControlKind;

using Value = std::optional<Text>;

Text Truth(bool value) {
  return Text(TruthWord(value));
}

Text AlignmentName(ui::Alignment alignment) {
  constexpr TextView kNames[] = {u"left", u"right", u"centre"};
  return Text(kNames[static_cast<std::size_t>(alignment)]);
}

Text Hexadecimal(ui::Colour colour) {
  Text text = u"0x";
  for (int shift = 28; shift >= 0; shift -= 4) text += u"0123456789ABCDEF"[(colour >> shift) & 15];
  return text;
}

// Reads a property of controls of class C; nothing for other controls.
template <class C, auto read>
Value Of(const ui::Control& control) {
  const auto* const found = dynamic_cast<const C*>(&control);
  return found != nullptr ? Value(read(*found)) : std::nullopt;
}

// A property that a control holds itself: its name, the side of the control that it belongs to, and
// how it is read. Some are there for several kinds, in rows of their own.
struct Property {
  TextView name;
  Changes side;
  Value (*read)(const ui::Control& control);
};
using C = const ui::Control&;
constexpr Property kProperties[] = {
    {u"enabled", Changes::kEnabled, [](C c) -> Value { return Truth(c.enabled()); }},
    {u"visible", Changes::kVisible, [](C c) -> Value { return Truth(c.visible()); }},
    {u"tooltip", Changes::kTooltip, [](C c) -> Value { return c.tooltip(); }},
    {u"left", Changes::kBounds, [](C c) -> Value { return Decimal(c.bounds().left); }},
    {u"top", Changes::kBounds, [](C c) -> Value { return Decimal(c.bounds().top); }},
    {u"width", Changes::kBounds, [](C c) -> Value { return Decimal(c.bounds().width); }},
    {u"height", Changes::kBounds, [](C c) -> Value { return Decimal(c.bounds().height); }},
    {u"tab_index", Changes::kTabIndex, [](C c) -> Value { return Decimal(c.tab_index()); }},
    {u"text", Changes::kText, Of<ui::TextBox, [](const auto& c) { return c.text(); }>},
    {u"caption", Changes::kText, [](C c) -> Value { return c.caption(); }},
    {u"alignment", Changes::kText,
     Of<ui::TextBox, [](const auto& c) { return AlignmentName(c.alignment()); }>},
    {u"alignment", Changes::kText,
     Of<ui::Label, [](const auto& c) { return AlignmentName(c.alignment()); }>},
    {u"value", Changes::kValue, Of<ui::CheckBox, [](const auto& c) { return Decimal(c.value()); }>},
    {u"limit", Changes::kLimit,
     Of<ui::TextBox, [](const auto& c) { return Decimal(c.max_length()); }>},
    {u"locked", Changes::kLimit, Of<ui::TextBox, [](const auto& c) { return Truth(c.locked()); }>},
    {u"font", Changes::kFont, Of<ui::Label, [](const auto& c) { return Decimal(c.font_size()); }>},
    {u"transparent", Changes::kColour,
     Of<ui::Label, [](const auto& c) { return Truth(c.transparent()); }>},
    {u"colour", Changes::kColour,
     Of<ui::PictureBox, [](const auto& c) { return Hexadecimal(c.back_colour()); }>},
    {u"picture", Changes::kPicture,
     Of<ui::Image,
        [](const auto& c) { return Text(c.picture() ? c.picture()->path() : TextView()); }>},
    {u"pointer", Changes::kPointer,
     Of<ui::Form,
        [](const auto& c) { return Text(PointerWord(c.pointer() == ui::Pointer::kBusy)); }>},
};

}  // namespace

MirrorPeer::MirrorPeer(ui::Control& control, std::function<void(const ui::Control&)> before_sync)
    : control_(control),
      selector_(dynamic_cast<const ui::Selector*>(&control)),
      before_sync_(std::move(before_sync)),
      properties_(std::size(kProperties)) {}

MirrorPeer::~MirrorPeer() {
  LeaveContainer();
  // They may live longer, and must not look for this one.
  for (MirrorPeer* left_behind : stacked_) left_behind->container_ = nullptr;
}

void MirrorPeer::Sync(Changes changes) {
  const SparedAllocations spared;
  if (before_sync_) before_sync_(control_);
  ++syncs_;
  for (std::size_t at = 0; at < properties_.size(); ++at) {
    if (changes.Has(kProperties[at].side)) properties_[at] = kProperties[at].read(control_);
  }
  if (selector_ != nullptr) TakeRows(changes);
  if (changes.Has(Changes::kOrder)) ComeToFront();
}

void MirrorPeer::TakeRows(Changes changes) {
  const auto& shown = selector_->rows();
  if (changes.Has(Changes::kRows)) rows_.clear();
  if (changes.Has(Changes::kRows | Changes::kRowsAdded)) {
    // Rows that are known already are not taken again, as a native list would not be given them
    // again.
    for (std::size_t row = rows_.size(); row < shown.size(); ++row, ++rows_taken_) {
      rows_.push_back({shown[row].text, shown[row].data});
    }
  }
  if (changes.Has(Changes::kRowData | Changes::kSelection)) {
    for (std::size_t row = 0; row < std::min(rows_.size(), shown.size()); ++row) {
      if (changes.Has(Changes::kRowData)) rows_[row].data = shown[row].data;
      if (changes.Has(Changes::kSelection)) rows_[row].selected = IsSelected(row);
    }
  }
  if (changes.Has(Changes::kSelection)) current_ = selector_->ListIndex();
  if (changes.Has(Changes::kTopRow)) top_row_ = selector_->TopIndex();
}

bool MirrorPeer::IsSelected(std::size_t row) const {
  return selector_->IsSelected(static_cast<int>(row));
}

void MirrorPeer::ComeToFront() {
  LeaveContainer();
  if (control_.container() == nullptr) return;
  container_ = &MirrorOf(*control_.container());
  container_->stacked_.push_back(this);
}

void MirrorPeer::LeaveContainer() noexcept {
  if (container_ != nullptr) std::erase(container_->stacked_, this);
  container_ = nullptr;
}

const MirrorPeer* MirrorPeer::Obstacle() const {
  const MirrorPeer* outer = container_ != nullptr ? container_->Obstacle() : nullptr;
  if (outer != nullptr) return outer;
  return Property(u"visible") == u"true" && Property(u"enabled") == u"true" ? nullptr : this;
}

TextView MirrorPeer::StaleSide() const {
  for (std::size_t at = 0; at < properties_.size(); ++at) {
    if (properties_[at] != kProperties[at].read(control_)) return kProperties[at].name;
  }
  // A hidden list tells its rows when it is shown.
  const bool held_back = control_.kind() == ControlKind::kListBox && !control_.visible();
  if (selector_ != nullptr && !held_back) {
    if (selector_->rows().size() != rows_.size()) return u"rows";
    for (std::size_t row = 0; row < rows_.size(); ++row) {
      MirroredRow now = selector_->rows()[row];
      now.selected = IsSelected(row);
      if (rows_[row] != now) return u"rows";
    }
    if (current_ != selector_->ListIndex()) return u"index";
    if (top_row_ != selector_->TopIndex()) return u"top";
  }
  return StacksLikeControl() ? TextView() : u"order";
}

bool MirrorPeer::StacksLikeControl() const {
  std::size_t place = 0;
  for (const ui::Control* child : control_.children()) {
    // The file dialog.
    if (child->peer() == nullptr) continue;
    if (place == stacked_.size() || &stacked_[place]->control_ != child) return false;
    ++place;
  }
  return place == stacked_.size();
}

void MirrorPeer::ChangeText(Text text) {
  for (std::size_t at = 0; at < properties_.size(); ++at) {
    if (kProperties[at].name != u"text") continue;
    properties_[at] = std::move(text);
    return;
  }
}

void MirrorPeer::ChangeSelection(const std::vector<int>& rows, int current) {
  for (MirroredRow& row : rows_) row.selected = false;
  for (const int row : rows) rows_.at(static_cast<std::size_t>(row)).selected = true;
  current_ = current;
}

std::optional<Text> MirrorPeer::Property(TextView name) const {
  if (name == u"name") return control_.name();
  if (name == u"kind") return Text(ui::KindName(control_.kind()));
  if (name == u"shown") {
    const bool outer = container_ == nullptr || container_->Property(name) == u"true";
    return Truth(outer && Property(u"visible") == u"true");
  }
  if (name == u"order") {
    if (container_ == nullptr) return Decimal(0);
    const auto& siblings = container_->stacked_;
    return Decimal(std::find(siblings.begin(), siblings.end(), this) - siblings.begin());
  }
  if (name == u"container") return container_ != nullptr ? container_->control_.name() : Text();
  if (name == u"bounds") {
    // For a list box "top" is the first visible row, so the place is read as such.
    const auto part = [this](TextView side) { return Held(side).value_or(Text()); };
    return Concat({part(u"left"), u",", part(u"top"), u",", part(u"width"), u",", part(u"height")});
  }
  Value value = RowProperty(name);
  return value ? value : Held(name);
}

std::optional<Text> MirrorPeer::Held(TextView name) const {
  for (std::size_t at = 0; at < properties_.size(); ++at) {
    if (kProperties[at].name == name && properties_[at]) return properties_[at];
  }
  return std::nullopt;
}

std::optional<Text> MirrorPeer::RowProperty(TextView name) const {
  if (selector_ == nullptr) return std::nullopt;
  const bool is_list = control_.kind() == ControlKind::kListBox;
  const auto row_at = [this](std::int64_t row) {
    return row >= 0 && row < std::ssize(rows_) ? &rows_[static_cast<std::size_t>(row)] : nullptr;
  };
  if (name == u"index" || name == u"current" || (is_list && name == u"caret")) {
    return Decimal(current_);
  }
  if (name == u"count") return Decimal(std::ssize(rows_));
  if (is_list && name == u"top") return Decimal(top_row_);
  if (!is_list && name == u"text") {
    return row_at(current_) != nullptr ? row_at(current_)->text : Text();
  }
  const bool is_selection = is_list && (name == u"selected" || name == u"selection");
  if (name == u"rows" || is_selection) {
    Text all;
    for (const MirroredRow& row : rows_) {
      if (is_selection && !row.selected) continue;
      const bool is_first = is_selection ? all.empty() : &row == rows_.data();
      if (!is_first) all += is_selection ? u" " : kLineBreak;
      all += is_selection ? Decimal(&row - rows_.data()) : row.text;
    }
    return all;
  }
  const bool is_data = name.starts_with(u"data ");
  const TextView number = name.substr(std::min<std::size_t>(5, name.size()));
  // Nine digits are always a number of 32 bits.
  if ((!is_data && !name.starts_with(u"item ")) || number.size() > 9 ||
      number.find_first_not_of(u"0123456789") != TextView::npos || number.empty()) {
    return std::nullopt;
  }
  const MirroredRow* const row = row_at(ToInt32(number));
  if (row == nullptr) return std::nullopt;
  return is_data ? Decimal(row->data) : row->text;
}

MirrorPeer& MirrorOf(const ui::Control& control) {
  auto* mirror = dynamic_cast<MirrorPeer*>(control.peer());
  if (mirror == nullptr) throw RuntimeError(ErrorNumber::kObjectNotSet);
  return *mirror;
}

}  // namespace quill::headless
