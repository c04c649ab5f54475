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

// Reads a property of controls of class Kind, which the control is of.
template <class Kind, auto read>
Text Of(const ui::Control& control) {
  return read(static_cast<const Kind&>(control));
}

using C = const ui::Control&;
constexpr Changes kNever;
constexpr MirroredProperty kProperties[] = {
    {u"enabled", Changes::kEnabled, {}, [](C c) { return Truth(c.enabled()); }},
    {u"visible", Changes::kVisible, {}, [](C c) { return Truth(c.visible()); }},
    {u"tooltip", Changes::kTooltip, {}, [](C c) { return c.tooltip(); }},
    {u"tab_index", Changes::kTabIndex, {}, [](C c) { return Decimal(c.tab_index()); }},
    {u"text", Changes::kText, ControlKind::kTextBox,
     Of<ui::TextBox, [](const auto& c) { return c.text(); }>},
    {u"caption", Changes::kText, {}, [](C c) { return c.caption(); }},
    {u"alignment", kNever, ControlKind::kTextBox,
     Of<ui::TextBox, [](const auto& c) { return AlignmentName(c.alignment); }>},
    {u"alignment", kNever, ControlKind::kLabel,
     Of<ui::Label, [](const auto& c) { return AlignmentName(c.alignment); }>},
    {u"value", Changes::kValue, ControlKind::kCheckBox,
     Of<ui::CheckBox, [](const auto& c) { return Decimal(c.value()); }>},
    {u"limit", kNever, ControlKind::kTextBox,
     Of<ui::TextBox, [](const auto& c) { return Decimal(c.max_length); }>},
    {u"locked", kNever, ControlKind::kTextBox,
     Of<ui::TextBox, [](const auto& c) { return Truth(c.locked); }>},
    {u"transparent", kNever, ControlKind::kLabel,
     Of<ui::Label, [](const auto& c) { return Truth(c.transparent); }>},
    {u"colour", Changes::kColour, ControlKind::kPictureBox,
     Of<ui::PictureBox, [](const auto& c) { return Hexadecimal(c.back_colour()); }>},
    {u"picture", Changes::kPicture, ControlKind::kImage,
     Of<ui::Image,
        [](const auto& c) { return Text(c.picture() ? c.picture()->path() : TextView()); }>},
    {u"pointer", Changes::kPointer, ControlKind::kForm,
     Of<ui::Form,
        [](const auto& c) { return Text(PointerWord(c.pointer() == ui::Pointer::kBusy)); }>},
};

}  // namespace

MirrorPeer::MirrorPeer(ui::Control& control, std::function<void(const ui::Control&)> before_sync)
    : control_(control),
      selector_(dynamic_cast<const ui::Selector*>(&control)),
      before_sync_(std::move(before_sync)) {
  for (const MirroredProperty& property : kProperties) {
    if (property.kind.value_or(control.kind()) != control.kind()) continue;
    held_.push_back({&property, property.side.Any() ? Text() : property.read(control)});
  }
}

MirrorPeer::~MirrorPeer() {
  LeaveContainer();
  // They may live longer, and must not look for this one.
  for (MirrorPeer* left_behind : stacked_) left_behind->container_ = nullptr;
}

void MirrorPeer::Sync(Changes changes) {
  const SparedAllocations spared;
  if (before_sync_) before_sync_(control_);
  ++syncs_;
  for (auto& [property, value] : held_) {
    if (changes.Has(property->side)) value = property->read(control_);
  }
  if (changes.Has(Changes::kBounds)) bounds_ = control_.bounds();
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
      if (changes.Has(Changes::kSelection)) rows_[row].selected = shown[row].selected;
    }
  }
  if (changes.Has(Changes::kSelection)) current_ = selector_->ListIndex();
  if (changes.Has(Changes::kTopRow)) top_row_ = selector_->TopIndex();
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

bool MirrorPeer::SelectsMany() const {
  const auto* const list = dynamic_cast<const ui::ListBox*>(selector_);
  return list != nullptr && list->selection() == ui::Selection::kExtended;
}

const MirrorPeer* MirrorPeer::Obstacle() const {
  const MirrorPeer* outer = container_ != nullptr ? container_->Obstacle() : nullptr;
  if (outer != nullptr) return outer;
  return Property(u"visible") == u"true" && Property(u"enabled") == u"true" ? nullptr : this;
}

TextView MirrorPeer::StaleSide() const {
  for (const auto& [property, value] : held_) {
    if (value != property->read(control_)) return property->name;
  }
  if (bounds_ != control_.bounds()) return u"bounds";
  // A hidden list tells its rows when it is shown.
  const bool held_back = control_.kind() == ControlKind::kListBox && !control_.visible();
  if (selector_ != nullptr && !held_back) {
    if (rows_ != selector_->rows()) return u"rows";
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
  const auto held = std::ranges::find_if(
      held_, [](const HeldValue& each) { return each.property->name == u"text"; });
  if (held != held_.end()) held->value = std::move(text);
}

void MirrorPeer::ChangeSelection(const std::vector<int>& rows, int current) {
  current_ = current;
  if (!SelectsMany()) return;
  for (MirroredRow& row : rows_) row.selected = false;
  for (const int row : rows) rows_.at(static_cast<std::size_t>(row)).selected = true;
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
    const auto& [left, top, width, height] = bounds_;
    return Concat({Decimal(left), u",", Decimal(top), u",", Decimal(width), u",", Decimal(height)});
  }
  if (auto value = RowProperty(name)) return value;
  if (name == u"left") return Decimal(bounds_.left);
  if (name == u"top") return Decimal(bounds_.top);
  if (name == u"width") return Decimal(bounds_.width);
  if (name == u"height") return Decimal(bounds_.height);
  return Held(name);
}

std::optional<Text> MirrorPeer::Held(TextView name) const {
  for (const auto& [property, value] : held_) {
    if (property->name == name) return value;
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
      const auto place = &row - rows_.data();
      if (is_selection && !(SelectsMany() ? row.selected : place == current_)) continue;
      const bool is_first = is_selection ? all.empty() : place == 0;
      if (!is_first) all += is_selection ? u" " : kLineBreak;
      all += is_selection ? Decimal(place) : row.text;
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
