// Taking over what a control shows, and telling it as text.
#include "headless/mirror_peer.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <utility>

#include "headless/shown_words.h"
#include "headless/spared_allocations.h"
#include "support/runtime_error.h"
#include "ui/check_box.h"
#include "ui/combo_box.h"
#include "ui/command_button.h"
#include "ui/form.h"
#include "ui/frame.h"
#include "ui/image.h"
#include "ui/label.h"
#include "ui/list_box.h"
#include "ui/tab_strip.h"

namespace quill::headless {
namespace {

using ui::Changes;
using ui::ControlKind;

Text Truth(bool value) {
  return Text(TruthWord(value));
}

Text PathOf(const ui::PicturePtr& picture) {
  return picture != nullptr ? Text(picture->path()) : Text();
}

Text AlignmentName(ui::Alignment alignment) {
  constexpr std::array<TextView, 3> kNames = {u"left", u"right", u"centre"};
  return Text(kNames[static_cast<std::size_t>(alignment)]);
}

Text Hexadecimal(ui::Colour colour) {
  Text text = u"0x";
  for (int shift = 28; shift >= 0; shift -= 4) text += u"0123456789ABCDEF"[(colour >> shift) & 15];
  return text;
}

std::optional<int> RowNumber(TextView digits) {
  if (digits.empty() || digits.size() > 9) return std::nullopt;
  int number = 0;
  for (const char16_t digit : digits) {
    if (digit < u'0' || digit > u'9') return std::nullopt;
    number = number * 10 + (digit - u'0');
  }
  return number;
}

// A set of control kinds.
class Kinds {
 public:
  constexpr Kinds() = default;  // all
  constexpr Kinds(std::initializer_list<ControlKind> kinds) : bits_(0) {
    for (const ControlKind kind : kinds) bits_ |= 1u << static_cast<unsigned>(kind);
  }
  [[nodiscard]] constexpr bool Has(ControlKind kind) const {
    return (bits_ >> static_cast<unsigned>(kind) & 1u) != 0;
  }

 private:
  unsigned bits_ = ~0u;
};

bool Shows(const std::vector<MirroredRow>& rows, const ui::ListBox& list) {
  if (list.Count() != std::ssize(rows)) return false;
  for (int row = 0; row < list.Count(); ++row) {
    const MirroredRow& mirrored = rows[static_cast<std::size_t>(row)];
    if (mirrored.text != list.Item(row) || mirrored.data != list.ItemData(row) ||
        mirrored.selected != list.IsSelected(row)) {
      return false;
    }
  }
  return true;
}

constexpr Kinds kWithRows = {ControlKind::kListBox, ControlKind::kComboBox, ControlKind::kTabStrip};
constexpr Kinds kWithCaption = {ControlKind::kForm, ControlKind::kFrame, ControlKind::kLabel,
                                ControlKind::kCheckBox, ControlKind::kCommandButton};

}  // namespace

MirrorPeer::MirrorPeer(ui::Control& control, std::function<void(const ui::Control&)> before_sync)
    : control_(control), before_sync_(std::move(before_sync)) {}

MirrorPeer::~MirrorPeer() {
  LeaveContainer();
  for (MirrorPeer* left_behind : stacked_) left_behind->container_ = nullptr;
}

void MirrorPeer::Sync(Changes changes) {
  const SparedAllocations spared;
  if (before_sync_) before_sync_(control_);
  ++syncs_;
  if (changes.Has(Changes::kBounds)) bounds_ = control_.bounds();
  if (changes.Has(Changes::kEnabled)) enabled_ = control_.enabled();
  if (changes.Has(Changes::kVisible)) visible_ = control_.visible();
  if (changes.Has(Changes::kTooltip)) tooltip_ = control_.tooltip();
  if (changes.Has(Changes::kTabIndex)) tab_index_ = control_.tab_index();
  if (changes.Has(Changes::kText)) TakeText();
  if (changes.Has(Changes::kValue)) {
    if (const auto* box = dynamic_cast<ui::CheckBox*>(&control_)) value_ = box->value();
  }
  if (changes.Has(Changes::kRows)) {
    TakeRows(true);
  } else {
    if (changes.Has(Changes::kRowsAdded)) TakeRows(false);
    if (changes.Has(Changes::kRowData)) TakeRowData();
  }
  if (changes.Has(Changes::kSelection)) TakeSelection();
  if (changes.Has(Changes::kTopRow)) {
    if (const auto* list = dynamic_cast<ui::ListBox*>(&control_)) top_row_ = list->TopIndex();
  }
  if (changes.Has(Changes::kPicture)) TakePicture();
  if (changes.Has(Changes::kOrder)) ComeToFront();
  if (changes.Has(Changes::kPointer)) {
    if (const auto* form = dynamic_cast<ui::Form*>(&control_)) pointer_ = form->pointer();
  }
  if (changes.Has(Changes::kFont)) {
    if (const auto* label = dynamic_cast<ui::Label*>(&control_)) font_size_ = label->font_size();
  }
  if (changes.Has(Changes::kColour)) TakeColour();
  if (changes.Has(Changes::kLimit)) TakeLimit();
}

void MirrorPeer::TakeText() {
  if (const auto* form = dynamic_cast<ui::Form*>(&control_)) {
    text_ = form->caption();
  } else if (const auto* frame = dynamic_cast<ui::Frame*>(&control_)) {
    text_ = frame->caption();
  } else if (const auto* label = dynamic_cast<ui::Label*>(&control_)) {
    text_ = label->caption();
    alignment_ = label->alignment();
  } else if (const auto* box = dynamic_cast<ui::TextBox*>(&control_)) {
    text_ = box->text();
    alignment_ = box->alignment();
  } else if (const auto* check = dynamic_cast<ui::CheckBox*>(&control_)) {
    text_ = check->caption();
  } else if (const auto* button = dynamic_cast<ui::CommandButton*>(&control_)) {
    text_ = button->caption();
  }
}

void MirrorPeer::TakeRows(bool from_the_start) {
  if (from_the_start) rows_.clear();
  const auto known = static_cast<int>(rows_.size());
  if (const auto* list = dynamic_cast<ui::ListBox*>(&control_)) {
    for (int row = known; row < list->Count(); ++row) {
      rows_.push_back({Text(list->Item(row)), list->ItemData(row)});
    }
  } else if (const auto* combo = dynamic_cast<ui::ComboBox*>(&control_)) {
    for (int row = known; row < combo->Count(); ++row) rows_.push_back({Text(combo->Item(row))});
  } else if (const auto* strip = dynamic_cast<ui::TabStrip*>(&control_)) {
    rows_.clear();
    for (const Text& caption : strip->captions()) rows_.push_back({caption});
  }
  rows_taken_ += rows_.size() - static_cast<std::size_t>(known);
}

void MirrorPeer::TakeRowData() {
  const auto* list = dynamic_cast<ui::ListBox*>(&control_);
  if (list == nullptr) return;
  const int known = std::min(static_cast<int>(rows_.size()), list->Count());
  for (int row = 0; row < known; ++row) {
    rows_[static_cast<std::size_t>(row)].data = list->ItemData(row);
  }
}

void MirrorPeer::TakeSelection() {
  if (const auto* list = dynamic_cast<ui::ListBox*>(&control_)) {
    current_ = list->ListIndex();
    const int known = std::min(static_cast<int>(rows_.size()), list->Count());
    for (int row = 0; row < known; ++row) {
      rows_[static_cast<std::size_t>(row)].selected = list->IsSelected(row);
    }
  } else if (const auto* combo = dynamic_cast<ui::ComboBox*>(&control_)) {
    current_ = combo->ListIndex();
  } else if (const auto* strip = dynamic_cast<ui::TabStrip*>(&control_)) {
    current_ = strip->selected();
  }
}

void MirrorPeer::TakePicture() {
  if (const auto* image = dynamic_cast<ui::Image*>(&control_)) {
    picture_ = PathOf(image->picture());
  }
}

void MirrorPeer::TakeColour() {
  if (const auto* label = dynamic_cast<ui::Label*>(&control_)) transparent_ = label->transparent();
  if (const auto* box = dynamic_cast<ui::PictureBox*>(&control_)) colour_ = box->back_colour();
}

void MirrorPeer::TakeLimit() {
  const auto* box = dynamic_cast<ui::TextBox*>(&control_);
  if (box == nullptr) return;
  limit_ = box->max_length();
  locked_ = box->locked();
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

bool MirrorPeer::IsShown() const noexcept {
  return visible_ && (container_ == nullptr || container_->IsShown());
}

bool MirrorPeer::IsEnabled() const noexcept {
  return enabled_ && (container_ == nullptr || container_->IsEnabled());
}

const MirrorPeer* MirrorPeer::Obstacle() const noexcept {
  const MirrorPeer* outer = container_ != nullptr ? container_->Obstacle() : nullptr;
  if (outer != nullptr) return outer;
  return visible_ && enabled_ ? nullptr : this;
}

TextView MirrorPeer::StaleSide() const {
  MirrorPeer whole(control_, nullptr);
  whole.Sync(Changes::kBounds | Changes::kEnabled | Changes::kVisible | Changes::kTooltip |
             Changes::kText | Changes::kValue | Changes::kTopRow | Changes::kPicture |
             Changes::kPointer | Changes::kFont | Changes::kColour | Changes::kLimit |
             Changes::kTabIndex);
  // A list's rows are many: they are compared where they are.
  const auto* const list = dynamic_cast<const ui::ListBox*>(&control_);
  if (list == nullptr) whole.Sync(Changes::kRows | Changes::kSelection);
  const bool held_back = list != nullptr && !list->visible();
  const struct {
    TextView name;
    bool is_same;
  } sides[] = {
      {u"bounds", bounds_ == whole.bounds_},
      {u"enabled", enabled_ == whole.enabled_},
      {u"visible", visible_ == whole.visible_},
      {u"tooltip", tooltip_ == whole.tooltip_},
      {u"tab_index", tab_index_ == whole.tab_index_},
      {u"text", text_ == whole.text_},
      {u"value", value_ == whole.value_},
      {u"alignment", alignment_ == whole.alignment_},
      {u"limit", limit_ == whole.limit_ && locked_ == whole.locked_},
      {u"font", font_size_ == whole.font_size_},
      {u"colour", colour_ == whole.colour_ && transparent_ == whole.transparent_},
      {u"picture", picture_ == whole.picture_},
      {u"pointer", pointer_ == whole.pointer_},
      {u"rows", held_back || (list != nullptr ? Shows(rows_, *list) : rows_ == whole.rows_)},
      {u"index", held_back || current_ == (list != nullptr ? list->ListIndex() : whole.current_)},
      {u"top", held_back || top_row_ == whole.top_row_},
      {u"order", StacksLikeControl()},
  };
  for (const auto& side : sides) {
    if (!side.is_same) return side.name;
  }
  return {};
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

void MirrorPeer::ChangeSelection(const std::vector<int>& rows, int current) {
  for (MirroredRow& row : rows_) row.selected = false;
  for (const int row : rows) rows_.at(static_cast<std::size_t>(row)).selected = true;
  current_ = current;
}

struct MirrorPeer::Reader {
  TextView property;
  Kinds kinds;
  Text (*read)(const MirrorPeer& mirror);

  static const Reader kAll[];
};

constexpr Kinds kListBoxOnly = {ControlKind::kListBox};
constexpr Kinds kWithText = {ControlKind::kTextBox, ControlKind::kComboBox, ControlKind::kTabStrip};
constexpr Kinds kWithAlignment = {ControlKind::kTextBox, ControlKind::kLabel};
constexpr Kinds kWithPicture = {ControlKind::kImage};

// A property that is there twice has its meaning from the first row that fits the kind.
const MirrorPeer::Reader MirrorPeer::Reader::kAll[] = {
    {u"name", {}, [](const MirrorPeer& m) { return m.control_.name(); }},
    {u"kind", {}, [](const MirrorPeer& m) { return Text(ui::KindName(m.control_.kind())); }},
    {u"enabled", {}, [](const MirrorPeer& m) { return Truth(m.enabled_); }},
    {u"visible", {}, [](const MirrorPeer& m) { return Truth(m.visible_); }},
    {u"shown", {}, [](const MirrorPeer& m) { return Truth(m.IsShown()); }},
    {u"tooltip", {}, [](const MirrorPeer& m) { return m.tooltip_; }},
    {u"top", kListBoxOnly, [](const MirrorPeer& m) { return Decimal(m.top_row_); }},
    {u"top", {}, [](const MirrorPeer& m) { return Decimal(m.bounds_.top); }},
    {u"left", {}, [](const MirrorPeer& m) { return Decimal(m.bounds_.left); }},
    {u"width", {}, [](const MirrorPeer& m) { return Decimal(m.bounds_.width); }},
    {u"height", {}, [](const MirrorPeer& m) { return Decimal(m.bounds_.height); }},
    {u"bounds",
     {},
     [](const MirrorPeer& m) {
       return Concat({Decimal(m.bounds_.left), u",", Decimal(m.bounds_.top), u",",
                      Decimal(m.bounds_.width), u",", Decimal(m.bounds_.height)});
     }},
    {u"order",
     {},
     [](const MirrorPeer& m) {
       if (m.container_ == nullptr) return Decimal(0);
       const auto& siblings = m.container_->stacked_;
       return Decimal(std::find(siblings.begin(), siblings.end(), &m) - siblings.begin());
     }},
    {u"tab_index", {}, [](const MirrorPeer& m) { return Decimal(m.tab_index_); }},
    {u"container",
     {},
     [](const MirrorPeer& m) {
       return m.container_ != nullptr ? m.container_->control_.name() : Text();
     }},
    {u"text", {ControlKind::kTextBox}, [](const MirrorPeer& m) { return m.text_; }},
    {u"text", kWithText,
     [](const MirrorPeer& m) {
       const auto row = static_cast<std::size_t>(m.current_);
       return m.current_ >= 0 && row < m.rows_.size() ? m.rows_[row].text : Text();
     }},
    {u"caption", kWithCaption, [](const MirrorPeer& m) { return m.text_; }},
    {u"value", {ControlKind::kCheckBox}, [](const MirrorPeer& m) { return Decimal(m.value_); }},
    {u"alignment", kWithAlignment, [](const MirrorPeer& m) { return AlignmentName(m.alignment_); }},
    {u"limit", {ControlKind::kTextBox}, [](const MirrorPeer& m) { return Decimal(m.limit_); }},
    {u"locked", {ControlKind::kTextBox}, [](const MirrorPeer& m) { return Truth(m.locked_); }},
    {u"font", {ControlKind::kLabel}, [](const MirrorPeer& m) { return Decimal(m.font_size_); }},
    {u"transparent",
     {ControlKind::kLabel},
     [](const MirrorPeer& m) { return Truth(m.transparent_); }},
    {u"colour", {ControlKind::kPictureBox}, [](const MirrorPeer& m) { return Hexadecimal(m.colour_); }},
    {u"picture", kWithPicture, [](const MirrorPeer& m) { return m.picture_; }},
    {u"pointer",
     {ControlKind::kForm},
     [](const MirrorPeer& m) {
       return Text(PointerWord(m.pointer_ == ui::Pointer::kBusy));
     }},
    {u"index", kWithRows, [](const MirrorPeer& m) { return Decimal(m.current_); }},
    {u"caret", kListBoxOnly, [](const MirrorPeer& m) { return Decimal(m.current_); }},
    {u"count",
     kWithRows,
     [](const MirrorPeer& m) { return Decimal(static_cast<std::int64_t>(m.rows_.size())); }},
    {u"rows", kWithRows,
     [](const MirrorPeer& m) {
       Text all;
       for (const MirroredRow& row : m.rows_) {
         if (&row != m.rows_.data()) all += kLineBreak;
         all += row.text;
       }
       return all;
     }},
    {u"selected", kListBoxOnly,
     [](const MirrorPeer& m) {
       Text all;
       for (std::size_t row = 0; row < m.rows_.size(); ++row) {
         if (!m.rows_[row].selected) continue;
         if (!all.empty()) all += u' ';
         AppendDecimal(all, static_cast<std::int64_t>(row));
       }
       return all;
     }},
};

std::optional<Text> MirrorPeer::Property(TextView name) const {
  if (name == u"current") name = u"index";
  if (name == u"selection") name = u"selected";
  for (const Reader& reader : Reader::kAll) {
    if (reader.property == name && reader.kinds.Has(control_.kind())) return reader.read(*this);
  }
  return RowProperty(name);
}

std::optional<Text> MirrorPeer::RowProperty(TextView name) const {
  constexpr TextView kItem = u"item ";
  constexpr TextView kData = u"data ";
  const bool is_data = name.substr(0, kData.size()) == kData;
  if (!kWithRows.Has(control_.kind()) || (!is_data && name.substr(0, kItem.size()) != kItem)) {
    return std::nullopt;
  }
  const std::optional<int> row = RowNumber(name.substr(kItem.size()));
  if (!row || static_cast<std::size_t>(*row) >= rows_.size()) return std::nullopt;
  const MirroredRow& found = rows_[static_cast<std::size_t>(*row)];
  return is_data ? Decimal(found.data) : found.text;
}

MirrorPeer& MirrorOf(const ui::Control& control) {
  auto* mirror = dynamic_cast<MirrorPeer*>(control.peer());
  if (mirror == nullptr) throw RuntimeError(ErrorNumber::kObjectNotSet);
  return *mirror;
}

}  // namespace quill::headless
