// A list box: its rows, selection and scrolling, and when the peer hears of them.
#include "ui/list_box.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "support/runtime_error.h"
#include "ui/form.h"

namespace quill::ui {
namespace {

constexpr std::uint32_t kTypedTogether = 1000;  // milliseconds
constexpr char16_t kBackspace = u'\b';

// How far a key moves a single-row list: by ten for a page, as its own would be one row. The ends
// are half of the largest number away, so that adding that to a row does not overflow.
constexpr int kToTheEnd = std::numeric_limits<int>::max() / 2;
constexpr struct {
  char16_t key;
  int rows;
} kSpinKeys[] = {{kUpKey, -1},           {kLeftKey, -1},      {kDownKey, 1},
                 {kRightKey, 1},         {kPageUpKey, -10},   {kPageDownKey, 10},
                 {kHomeKey, -kToTheEnd}, {kEndKey, kToTheEnd}};

// The signs for adding and removing rows are commands.
bool IsForTyping(char16_t unit) {
  return unit > u' ' && unit != u'+' && unit != u'=' && unit != u'-';
}

}  // namespace

ListBox::ListBox(Form& form, Text name, Selection selection, ListHeight height)
    : Selector(form, ControlKind::kListBox, std::move(name)),
      selection_(selection),
      list_height_(height) {}

void ListBox::Refill::Finish() {
  // It has ended, even if the peer now fails: the destructor does not try again.
  ListBox* const list = std::exchange(list_, nullptr);
  if (list == nullptr) return;
  --list->refills_;
  list->RowsChanged({});
}

ListBox::Refill::~Refill() {
  try {
    Finish();
  } catch (...) {
    // What is pending stays pending.
  }
}

void ListBox::SetItemData(int row, std::int32_t data) {
  rows_[Checked(row)].data = data;
  RowsChanged(Changes::kRowData);
}

Changes ListBox::MakeCurrent(int row) {
  const int top_before = top_index_;
  if (row >= 0) {
    top_index_ = std::clamp(top_index_, row - VisibleRows() + 1, row);
    top_index_ = std::max(top_index_, 0);
  }
  const Changes changes = Selector::MakeCurrent(row);
  return top_index_ == top_before ? changes : changes | Changes::kTopRow;
}

void ListBox::SetCurrentRow(int row) {
  if (row != -1) static_cast<void>(Checked(row));
  RowsChanged(MakeCurrent(row));
}

void ListBox::SetTopIndex(int row) {
  if (!Holds(row)) throw RuntimeError(ErrorNumber::kInvalidPropertyValue);
  top_index_ = row;
  RowsChanged(Changes::kTopRow);
}

int ListBox::VisibleRows() const {
  if (list_height_ == ListHeight::kSingleRow) return 1;
  const Twips row_height = form().toolkit().GetMetrics().list_row_height;
  return std::max(row_height > 0 ? bounds().height / row_height : 1, 1);
}

bool ListBox::IsSelected(int row) const {
  const Row& asked = rows_[Checked(row)];
  return selection_ == Selection::kExtended ? asked.selected : row == list_index_;
}

void ListBox::SetSelected(int row, bool selected) {
  Row& changed = rows_[Checked(row)];
  if (selection_ == Selection::kExtended) {
    changed.selected = selected;
    RowsChanged(Changes::kSelection);
  } else if (selected) {
    SetListIndex(row);
  } else if (row == list_index_) {
    SetListIndex(-1);
  }
}

void ListBox::RowsChanged(Changes changes) {
  pending_ |= changes;
  if (refills_ > 0 || !visible() || !pending_.Any()) return;
  // Forgotten only when the peer has taken it; after a failure it is told again.
  Changed(pending_);
  pending_ = {};
}

void ListBox::React(const Fact& fact) {
  if (const auto* const rows = std::get_if<RowsSelected>(&fact)) {
    TakeSelection(*rows);
  } else if (const auto* const scrolled = std::get_if<ScrolledTo>(&fact)) {
    TakeTopRow(scrolled->top);
  } else if (const auto* const clicked = std::get_if<RowDoubleClicked>(&fact)) {
    const bool on_row = Holds(clicked->row);
    if (on_row || selection_ == Selection::kExtended) {
      const int row = on_row ? clicked->row : -1;
      if (row != list_index_) RowsChanged(MakeCurrent(row));
    }
    Raise(u"DblClick", on_double_click);
  } else if (const auto* const key = std::get_if<KeyPressed>(&fact)) {
    TakeTyping(*key);
    Raise(u"KeyPress", on_key_press, key->character);
  } else if (const auto* const asked = std::get_if<MenuAsked>(&fact)) {
    if (Holds(asked->row) && !IsSelected(asked->row)) SelectOnly(asked->row);
    OpenMenu(asked->x, asked->y);
  }
}

bool ListBox::ReactToKey(const KeyStruck& key) {
  const bool spins = list_height_ == ListHeight::kSingleRow && Count() > 0 &&
                     (key.stroke.shift & (kCtrlHeld | kAltHeld)) == 0;
  if (!spins) return false;
  for (const auto& spin : kSpinKeys) {
    if (spin.key != key.stroke.key) continue;
    SelectOnly(std::clamp(top_index_ + spin.rows, 0, Count() - 1));
    return true;
  }
  return false;
}

void ListBox::TakeSelection(const RowsSelected& fact) {
  if (fact.current != -1 && !Holds(fact.current)) return RowsChanged(Changes::kSelection);
  if (selection_ == Selection::kSingle) {
    // The native list shows its choice; only a single-row list also has to bring it into view.
    RowsChanged(list_height_ == ListHeight::kSingleRow ? MakeCurrent(fact.current) : Changes());
    list_index_ = fact.current;
    if (fact.current >= 0) Raise(u"Click", on_click);
    return;
  }
  for (Row& row : rows_) row.selected = false;
  bool all_exist = true;
  for (const int row : fact.rows) {
    all_exist &= Holds(row);
    if (Holds(row)) rows_[Checked(row)].selected = true;
  }
  list_index_ = fact.current;
  if (!all_exist) RowsChanged(Changes::kSelection);
  Raise(u"Click", on_click);
}

void ListBox::TakeTopRow(int top) {
  const int held = std::clamp(top, 0, std::max(Count() - 1, 0));
  const bool moved = std::exchange(top_index_, held) != held;
  if (held != top) RowsChanged(Changes::kTopRow);
  if (moved) Raise(u"Scroll", on_scroll);
}

void ListBox::TakeTyping(const KeyPressed& key) {
  // Unsigned, so that the difference is right also when the milliseconds begin again.
  if (key.time - typed_at_ > kTypedTogether) typed_.clear();
  Text typed = typed_;
  if (key.character == kBackspace) {
    if (!typed.empty()) typed.pop_back();
  } else if (IsForTyping(key.character) || (key.character == u' ' && !typed.empty())) {
    typed += key.character;
  }
  if (typed.size() == typed_.size()) return;
  const int row = typed.empty() ? -1 : RowOfTyping(typed);
  if (row < 0 && !typed.empty()) return;
  typed_ = std::move(typed);
  typed_at_ = key.time;
  if (row >= 0) SelectOnly(row);
}

int ListBox::RowOfTyping(TextView typed) const noexcept {
  const bool whole_counts = list_height_ == ListHeight::kSingleRow;
  // What goes on being typed may mean the current row still.
  const int first = whole_counts ? 0 : std::max(list_index_ + (typed.size() == 1 ? 1 : 0), 0);
  int found = -1;
  for (int step = 0; step < Count(); ++step) {
    const int row = (first + step) % Count();
    const TextView item = Item(row);
    if (!EqualIgnoringCase(item.substr(0, typed.size()), typed)) continue;
    if (!whole_counts || item.size() == typed.size()) return row;
    if (found < 0) found = row;
  }
  return found;
}

void ListBox::SelectOnly(int row) {
  if (selection_ == Selection::kExtended) {
    for (Row& other : rows_) other.selected = false;
    rows_[Checked(row)].selected = true;
    RowsChanged(MakeCurrent(row));
    Raise(u"Click", on_click);
  } else if (list_height_ == ListHeight::kSingleRow && top_index_ != row) {
    // As if the operator had scrolled there: the scroll handler makes it the chosen row.
    SetTopIndex(row);
    Raise(u"Scroll", on_scroll);
  } else {
    SetListIndex(row);
  }
}

}  // namespace quill::ui
