// Gestures, as changes of the native control and the facts that it would report.
#include "headless/headless_operator.h"

#include <algorithm>
#include <utility>

#include "support/runtime_error.h"
#include "ui/list_box.h"

namespace quill::headless {
namespace {

using ui::ControlKind;

[[noreturn]] void Refuse(std::initializer_list<TextView> reason) {
  throw RuntimeError(ErrorNumber::kInvalidProcedureCall, Concat(reason));
}

// A field of one line takes no more than that from the clipboard, whose texts end with a zero.
TextView FirstLine(TextView text) {
  return text.substr(0, text.find_first_of(TextView(u"\r\n\0", 3)));
}

}  // namespace

// One gesture at one control. It makes sure that the gesture is possible, and keeps the form while
// it lasts.
class HeadlessOperator::Gesture {
 public:
  Gesture(const HeadlessOperator& hand, ui::Control& control,
          std::initializer_list<ControlKind> kinds)
      : hand_(hand), control_(control), alive_(control.form().weak_from_this().lock()) {
    if (std::find(kinds.begin(), kinds.end(), control.kind()) == kinds.end()) {
      Refuse({u"'", control.name(), u"' is a ", ui::KindName(control.kind()),
              u" and takes no such gesture"});
    }
    CheckPossible();
  }

  [[nodiscard]] ui::Control& control() const { return control_; }
  [[nodiscard]] MirrorPeer& mirror() const { return MirrorOf(control_); }
  // Of a list box.
  [[nodiscard]] const ui::ListBox& list() const {
    return static_cast<const ui::ListBox&>(control_);
  }
  [[nodiscard]] Text text() const { return mirror().Property(u"text").value_or(Text()); }

  // The operator goes on at the same control.
  void CheckPossible() const {
    if (hand_.toolkit_.IsBoxOpen()) Refuse({u"A box is open in front of '", control_.name(), u"'"});
    if (hand_.toolkit_.ModalForm() != &control_.form()) Refuse({u"The dialog is not shown"});
    const MirrorPeer* obstacle = mirror().Obstacle();
    if (obstacle == nullptr) return;
    Refuse({u"'", control_.name(), u"' cannot be reached: '", obstacle->control().name(),
            obstacle->Property(u"visible") == u"true" ? u"' is disabled" : u"' is hidden"});
  }

  void CheckRow(int row) const {
    if (row >= 0 && row < RowCount()) return;
    Refuse({u"'", control_.name(), u"' has no row ", Decimal(row)});
  }
  [[nodiscard]] int RowCount() const { return static_cast<int>(mirror().rows().size()); }

  // Chooses the first row of that text; false when there is none.
  [[nodiscard]] bool ChooseRow(TextView text) const {
    const auto& rows = mirror().rows();
    const auto found = std::ranges::find(rows, text, &MirroredRow::text);
    if (found == rows.end()) return false;
    const auto index = static_cast<int>(found - rows.begin());
    mirror().ChangeCurrent(index);
    Report(ui::ItemChosen{index});
    return true;
  }

  bool Report(const ui::Fact& fact) const { return control_.Happened(fact); }

 private:
  const HeadlessOperator& hand_;
  ui::Control& control_;
  ui::KeepAlive alive_;
};

ui::Form& HeadlessOperator::Dialog() const {
  ui::Form* form = dialog_ ? dialog_() : nullptr;
  if (form == nullptr) Refuse({u"There is no dialog"});
  return *form;
}

ui::Control& HeadlessOperator::Find(TextView name) const {
  ui::Form& form = Dialog();
  if (EqualIgnoringCase(form.name(), name)) return form;
  return form.At(name);
}

void HeadlessOperator::Edit(const Gesture& gesture, Text text, std::size_t from) {
  // For each character anew: handling the one before may have closed the dialog.
  gesture.CheckPossible();
  if (gesture.mirror().Property(u"locked") == u"true") return;
  gesture.mirror().ChangeText(text);
  gesture.Report(ui::TextEdited{std::move(text), from});
}

void HeadlessOperator::Type(TextView name, TextView text) {
  ui::Control& control = Find(name);
  if (control.kind() == ControlKind::kListBox) {
    for (const char16_t character : text) Key(name, character);
    return;
  }
  const Gesture gesture(*this, control, {ControlKind::kTextBox});
  for (const char16_t character : text) {
    const Text before = gesture.text();
    Edit(gesture, before + character, before.size());
  }
}

void HeadlessOperator::SelectAllAndType(TextView name, TextView text) {
  Edit(Gesture(*this, Find(name), {ControlKind::kTextBox}), Text(text.substr(0, 1)), 0);
  if (text.size() > 1) Type(name, text.substr(1));
}

void HeadlessOperator::Paste(TextView name, TextView text) {
  Edit(Gesture(*this, Find(name), {ControlKind::kTextBox}), Text(FirstLine(text)), 0);
}

void HeadlessOperator::PasteAtEnd(TextView name, TextView text) {
  const Gesture gesture(*this, Find(name), {ControlKind::kTextBox});
  const Text before = gesture.text();
  Edit(gesture, Concat({before, FirstLine(text)}), before.size());
}

void HeadlessOperator::EraseLast(TextView name, int count) {
  const Gesture gesture(*this, Find(name), {ControlKind::kTextBox});
  for (; count > 0; --count) {
    const Text text = gesture.text();
    if (text.empty()) return;
    // The insertion point is at the end, and nothing is selected.
    Edit(gesture, text.substr(0, text.size() - 1), text.size());
  }
}

void HeadlessOperator::Choose(TextView name, TextView item) {
  const Gesture gesture(*this, Find(name), {ControlKind::kComboBox});
  if (!gesture.ChooseRow(item)) Refuse({u"'", name, u"' has no item '", item, u"'"});
}

void HeadlessOperator::Click(TextView name) {
  const Gesture gesture(*this, Find(name), {ControlKind::kCheckBox, ControlKind::kCommandButton});
  gesture.Report(ui::Clicked{});
}

void HeadlessOperator::ClickTab(TextView caption) {
  for (const auto& control : Dialog().controls()) {
    if (control->kind() != ControlKind::kTabStrip) continue;
    if (Gesture(*this, *control, {ControlKind::kTabStrip}).ChooseRow(caption)) return;
  }
  Refuse({u"There is no tab '", caption, u"'"});
}

void HeadlessOperator::ScrollTo(TextView name, int row) {
  const Gesture gesture(*this, Find(name), {ControlKind::kListBox});
  const int last_top = std::max(gesture.RowCount() - gesture.list().VisibleRows(), 0);
  const int top = std::clamp(row, 0, last_top);
  // A native list tells nothing then.
  if (top == gesture.mirror().top_row()) return;
  gesture.mirror().ChangeTopRow(top);
  gesture.Report(ui::ScrolledTo{top});
}

void HeadlessOperator::ScrollBy(TextView name, int rows) {
  const int step = rows < 0 ? -1 : 1;
  const Gesture gesture(*this, Find(name), {ControlKind::kListBox});
  for (; rows != 0; rows -= step) {
    const int before = gesture.mirror().top_row();
    ScrollTo(name, before + step);
    if (gesture.mirror().top_row() == before) return;
  }
}

void HeadlessOperator::ClickRow(TextView name, int row) {
  const Gesture gesture(*this, Find(name), {ControlKind::kListBox});
  gesture.CheckRow(row);
  const int top = gesture.mirror().top_row();
  if (row < top) ScrollTo(name, row);
  if (row >= top + gesture.list().VisibleRows())
    ScrollTo(name, row - gesture.list().VisibleRows() + 1);
  SelectRows(name, {row});
}

void HeadlessOperator::SelectRows(TextView name, const std::vector<int>& rows) {
  const Gesture gesture(*this, Find(name), {ControlKind::kListBox});
  for (const int row : rows) gesture.CheckRow(row);
  if (gesture.list().selection() == ui::Selection::kSingle && rows.size() != 1) {
    Refuse({u"'", name, u"' takes one row at a time"});
  }
  ui::RowsSelected fact{rows, rows.empty() ? gesture.mirror().current() : rows.back()};
  // As a native list tells them; the row that was clicked last stays the current one.
  std::ranges::sort(fact.rows);
  fact.rows.erase(std::ranges::unique(fact.rows).begin(), fact.rows.end());
  gesture.mirror().ChangeSelection(fact.rows, fact.current);
  gesture.Report(fact);
}

void HeadlessOperator::DoubleClickRow(TextView name, int row) {
  const Gesture gesture(*this, Find(name), {ControlKind::kListBox});
  if (row != -1) {
    ClickRow(name, row);
    // The first of the two clicks may have closed the dialog or opened a box.
    gesture.CheckPossible();
  }
  gesture.Report(ui::RowDoubleClicked{row});
}

void HeadlessOperator::Key(TextView name, char16_t character) {
  ui::Control& control = Find(name);
  switch (control.kind()) {
    case ControlKind::kTextBox:
      return Type(name, TextView(&character, 1));
    case ControlKind::kCheckBox:
    case ControlKind::kCommandButton:
      if (character == u' ') return Click(name);
      static_cast<void>(
          Gesture(*this, control, {control.kind()}));  // a key that does nothing there
      return;
    default:
      Gesture(*this, control, {ControlKind::kListBox}).Report(ui::KeyPressed{character, now});
  }
}

void HeadlessOperator::MouseAt(TextView name, bool pressed, std::int16_t button) {
  const Gesture gesture(*this, Find(name),
                        {ControlKind::kImage, ControlKind::kLabel, ControlKind::kFrame});
  const ui::Bounds& bounds = gesture.control().bounds();
  const ui::MouseEvent event{button, bounds.width / 2, bounds.height / 2};
  gesture.Report(pressed ? ui::Fact(ui::MousePressed{event}) : ui::MouseReleased{event});
}

void HeadlessOperator::Strike(TextView name, ui::KeyStroke stroke, int times) {
  const Gesture gesture(*this, Find(name),
                        {ControlKind::kListBox, ControlKind::kTextBox, ControlKind::kImage,
                         ControlKind::kCommandButton, ControlKind::kCheckBox});
  // Keys go to the control that has the focus.
  gesture.Report(ui::FocusTaken{});
  for (int time = 0; time < times; ++time) gesture.Report(ui::KeyStruck{stroke, time > 0});
}

void HeadlessOperator::ChooseFromMenu(TextView name, int row, TextView caption) {
  const Gesture gesture(*this, Find(name), {ControlKind::kListBox});
  if (row != -1) gesture.CheckRow(row);
  toolkit_.menu_choice = caption;
  gesture.Report(ui::MenuAsked{0, 0, row});
  // The toolkit's list of the menu has a grey item in parentheses.
  const Text usable = Concat({caption, u" | "});
  const bool is_there = std::ranges::any_of(
      toolkit_.menu(), [&](const Text& item) { return item.starts_with(usable); });
  if (!caption.empty() && !is_there) Refuse({u"The menu offers no '", caption, u"'"});
}

void HeadlessOperator::PressAccessKey(char16_t key, int times) {
  const Gesture gesture(*this, Dialog(), {ControlKind::kForm});
  for (int time = 0; time < times; ++time) {
    const bool is_there = gesture.Report(ui::AccessKeyStruck{key, time > 0});
    if (!is_there) Refuse({u"No control here has that access key"});
  }
}

void HeadlessOperator::CloseForm() {
  Gesture(*this, Dialog(), {ControlKind::kForm}).Report(ui::CloseAsked{});
}

Text HeadlessOperator::Read(TextView name, TextView property) const {
  const std::optional<Text> shown = MirrorOf(Find(name)).Property(property);
  if (!shown) Refuse({u"'", name, u"' has no property '", property, u"'"});
  return *shown;
}

}  // namespace quill::headless
