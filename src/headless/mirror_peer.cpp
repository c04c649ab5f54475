// Taking over what a control shows, and telling it as text.
#include "headless/mirror_peer.h"

#include <algorithm>
#include <utility>

#include "headless/shown_words.h"
#include "headless/spared_allocations.h"
#include "support/number_text.h"
#include "support/runtime_error.h"
#include "ui/check_box.h"
#include "ui/combo_box.h"
#include "ui/command_button.h"
#include "ui/form.h"
#include "ui/frame.h"
#include "ui/image.h"
#include "ui/label.h"
#include "ui/list_box.h"
#include "ui/picture_box.h"
#include "ui/tab_strip.h"
#include "ui/text_box.h"

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
    {u"caption", Changes::kText, Of<ui::Form, [](const auto& c) { return c.caption(); }>},
    {u"caption", Changes::kText, Of<ui::Frame, [](const auto& c) { return c.caption(); }>},
    {u"caption", Changes::kText, Of<ui::Label, [](const auto& c) { return c.caption(); }>},
    {u"caption", Changes::kText, Of<ui::CheckBox, [](const auto& c) { return c.caption(); }>},
    {u"caption", Changes::kText, Of<ui::CommandButton, [](const auto& c) { return c.caption(); }>},
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

// The rows of a control: items, tabs; none for one that has no rows.
int CountOf(const ui::Control& control) {
  switch (control.kind()) {
    case ControlKind::kListBox:
      return static_cast<const ui::ListBox&>(control).Count();
    case ControlKind::kComboBox:
      return static_cast<const ui::ComboBox&>(control).Count();
    case ControlKind::kTabStrip:
      return static_cast<int>(static_cast<const ui::TabStrip&>(control).captions().size());
    default:
      return 0;
  }
}

struct RowView {
  TextView text;
  std::int32_t data = 0;
  bool selected = false;
};
RowView RowOf(const ui::Control& control, int row) {
  if (control.kind() == ControlKind::kListBox) {
    const auto& list = static_cast<const ui::ListBox&>(control);
    return {list.Item(row), list.ItemData(row), list.IsSelected(row)};
  }
  if (control.kind() == ControlKind::kComboBox) {
    return {static_cast<const ui::ComboBox&>(control).Item(row)};
  }
  return {static_cast<const ui::TabStrip&>(control).captions()[static_cast<std::size_t>(row)]};
}

int CurrentOf(const ui::Control& control) {
  if (const auto* list = dynamic_cast<const ui::ListBox*>(&control)) return list->ListIndex();
  if (const auto* combo = dynamic_cast<const ui::ComboBox*>(&control)) return combo->ListIndex();
  if (const auto* strip = dynamic_cast<const ui::TabStrip*>(&control)) return strip->selected();
  return -1;
}

int TopRowOf(const ui::Control& control) {
  const auto* const list = dynamic_cast<const ui::ListBox*>(&control);
  return list != nullptr ? list->TopIndex() : 0;
}

}  // namespace

MirrorPeer::MirrorPeer(ui::Control& control, std::function<void(const ui::Control&)> before_sync)
    : control_(control),
      before_sync_(std::move(before_sync)),
      properties_(std::size(kProperties)) {}

MirrorPeer::~MirrorPeer() {
  LeaveContainer();
  for (MirrorPeer* left_behind : stacked_) left_behind->container_ = nullptr;
}

void MirrorPeer::Sync(Changes changes) {
  const SparedAllocations spared;
  if (before_sync_) before_sync_(control_);
  ++syncs_;
  for (std::size_t at = 0; at < properties_.size(); ++at) {
    if (changes.Has(kProperties[at].side)) properties_[at] = kProperties[at].read(control_);
  }
  if (changes.Has(Changes::kRows)) rows_.clear();
  if (changes.Has(Changes::kRows) || changes.Has(Changes::kRowsAdded)) {
    for (int row = static_cast<int>(rows_.size()); row < CountOf(control_); ++row, ++rows_taken_) {
      const RowView added = RowOf(control_, row);
      rows_.push_back({Text(added.text), added.data});
    }
  }
  const bool data_changed = changes.Has(Changes::kRowData);
  const bool selection_changed = changes.Has(Changes::kSelection);
  if (data_changed || selection_changed) {
    const int known = std::min(static_cast<int>(rows_.size()), CountOf(control_));
    for (int row = 0; row < known; ++row) {
      const RowView now = RowOf(control_, row);
      MirroredRow& mirrored = rows_[static_cast<std::size_t>(row)];
      if (data_changed) mirrored.data = now.data;
      if (selection_changed) mirrored.selected = now.selected;
    }
  }
  if (selection_changed) current_ = CurrentOf(control_);
  if (changes.Has(Changes::kTopRow)) top_row_ = TopRowOf(control_);
  if (changes.Has(Changes::kOrder)) ComeToFront();
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
  const bool held_back = control_.kind() == ControlKind::kListBox && !control_.visible();
  if (!held_back) {
    if (CountOf(control_) != std::ssize(rows_)) return u"rows";
    for (int row = 0; row < CountOf(control_); ++row) {
      const MirroredRow& mirrored = rows_[static_cast<std::size_t>(row)];
      const RowView now = RowOf(control_, row);
      const bool is_same = mirrored.text == now.text && mirrored.data == now.data &&
                           mirrored.selected == now.selected;
      if (!is_same) return u"rows";
    }
    if (current_ != CurrentOf(control_)) return u"index";
    if (top_row_ != TopRowOf(control_)) return u"top";
  }
  return StacksLikeControl() ? TextView() : u"order";
}

bool MirrorPeer::StacksLikeControl() const {
  std::size_t place = 0;
  for (const ui::Control* child : control_.children()) {
    if (child->peer() == nullptr) continue;
    if (place == stacked_.size() || &stacked_[place]->control_ != child) return false;
    ++place;
  }
  return place == stacked_.size();
}

void MirrorPeer::ChangeText(Text text) {
  for (std::size_t at = 0; at < properties_.size(); ++at) {
    if (kProperties[at].name == u"text") properties_[at] = std::move(text);
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
    return Concat({*Property(u"left"), u",", *Held(u"top"), u",", *Property(u"width"), u",",
                   *Property(u"height")});
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
  const bool is_list = control_.kind() == ControlKind::kListBox;
  if (!is_list && control_.kind() != ControlKind::kComboBox &&
      control_.kind() != ControlKind::kTabStrip) {
    return std::nullopt;
  }
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
