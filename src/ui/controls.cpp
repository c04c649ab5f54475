// What small controls make of the operator's facts.
#include "ui/controls.h"

#include <algorithm>
#include <utility>

#include "support/runtime_error.h"
#include "support/trap.h"
#include "ui/form.h"

namespace quill::ui {
namespace {

bool IsHighSurrogate(char16_t unit) {
  return (unit & 0xFC00) == 0xD800;
}
bool IsLowSurrogate(char16_t unit) {
  return (unit & 0xFC00) == 0xDC00;
}

}  // namespace

void TextBox::SetText(TextView text) {
  text_ = text;
  Changed(Changes::kText);
}

Text TextBox::ApplyLimit(TextView before, const TextEdited& edit, int max_length) {
  const TextView after = edit.text;
  const auto limit = static_cast<std::size_t>(std::max(max_length, 0));
  if (limit == 0 || after.size() <= limit) return edit.text;

  // What was selected has been replaced; what stood before and behind it stays.
  const std::size_t to = std::min(edit.to, before.size());
  const std::size_t prefix = std::min(edit.from, to);
  const std::size_t suffix = before.size() - to;
  const std::size_t kept = prefix + suffix;
  if (after.size() < kept) return edit.text;  // an erasure beside the insertion point
  const TextView inserted = after.substr(prefix, after.size() - kept);
  std::size_t fitting = std::min(inserted.size(), limit > kept ? limit - kept : 0);
  // Half a surrogate pair is no character.
  const bool splits_pair =
      fitting > 0 && IsHighSurrogate(inserted[fitting - 1]) && IsLowSurrogate(inserted[fitting]);
  if (splits_pair) --fitting;
  return Concat(
      {after.substr(0, prefix), inserted.substr(0, fitting), after.substr(after.size() - suffix)});
}

void TextBox::React(const Fact& fact) {
  const auto* const edited = std::get_if<TextEdited>(&fact);
  if (edited == nullptr) return;
  if (!locked) text_ = ApplyLimit(text_, *edited, max_length);
  // The native text shows the edit already; the peer is told only where the model decides
  // otherwise.
  if (text_ != edited->text) Changed(Changes::kText);
}

void CheckBox::SetValue(int value) {
  if (value < 0 || value > 2) throw RuntimeError(ErrorNumber::kInvalidPropertyValue);
  // The peer is told in any case: the native box may show something else.
  const bool is_new = std::exchange(value_, value) != value;
  Changed(Changes::kValue);
  if (is_new) Raise(u"Click", on_click);
}

void CheckBox::React(const Fact& fact) {
  if (std::holds_alternative<Clicked>(fact)) SetValue(value_ == 0 ? 1 : 0);
}

void CommandButton::React(const Fact& fact) {
  const auto* const clicked = std::get_if<Clicked>(&fact);
  // Holding a key down is one click.
  if (clicked != nullptr && !clicked->repeated) Raise(u"Click", on_click);
}

bool CommandButton::ReactToKey(const KeyStruck& key) {
  if (key.stroke.key != kEnterKey || (key.stroke.shift & kAltHeld) != 0) return false;
  React(Clicked{key.repeated});
  return true;
}

void Image::SetPicture(PicturePtr picture) {
  // Without a picture the image is hidden, so a new picture can show or hide it.
  const bool was_visible = visible();
  picture_ = std::move(picture);
  Changed(was_visible == visible() ? Changes::kPicture : Changes::kPicture | Changes::kVisible);
}

void Image::React(const Fact& fact) {
  Control::React(fact);
  if (const auto* const clicked = std::get_if<Clicked>(&fact)) {
    if (clicked->repeated && !repeats) return;
    Raise(u"MouseDown", on_mouse_down, Middle());
    Raise(u"MouseUp", on_mouse_up, Middle());
  } else if (const auto* const key = std::get_if<KeyReleased>(&fact)) {
    const bool ends = key->key == kSpaceKey && std::exchange(space_held_, false);
    if (ends) Raise(u"MouseUp", on_mouse_up, Middle());
  } else if (std::holds_alternative<FocusLost>(fact)) {
    // The space bar will be released elsewhere.
    LoseSpace();
  } else if (std::holds_alternative<FocusTaken>(fact)) {
    space_held_ = false;  // of a display that ended meanwhile
  }
}

bool Image::ReactToKey(const KeyStruck& key) {
  if ((key.stroke.shift & kAltHeld) != 0) return false;
  if (key.stroke.key == kSpaceKey) {
    if (!std::exchange(space_held_, true)) Raise(u"MouseDown", on_mouse_down, Middle());
    return true;
  }
  // Any other key takes back the press of the space bar that is held.
  if (key.stroke.key != kEnterKey) {
    LoseSpace();
    return false;
  }
  React(Clicked{key.repeated});
  return true;
}

MouseEvent Image::Middle() const noexcept {
  return {kLeftButton, bounds().width / 2, bounds().height / 2};
}

void Image::LoseSpace() {
  if (std::exchange(space_held_, false)) Raise(u"MouseLost", on_mouse_lost);
}

Text FileDialog::Show(bool save) {
  // The operator takes his time, and the host may unload the form meanwhile.
  const KeepAlive alive(form().weak_from_this().lock());
  request.save = save;
  // A copy, because a host call may come in while the dialog is open.
  const FileDialogRequest asked = request;
  const std::vector<Text> picked = form().toolkit().ShowFileDialog(form(), asked);
  request.file_name = picked.empty() ? Text() : picked.front();
  return request.file_name;
}

std::size_t Selector::Checked(int row) const {
  if (!Holds(row)) throw RuntimeError(ErrorNumber::kInvalidProcedureCall);
  return static_cast<std::size_t>(row);
}

TextView Selector::text() const noexcept {
  return list_index_ >= 0 ? Item(list_index_) : TextView();
}

void Selector::Clear() {
  rows_.clear();
  list_index_ = -1;
  top_index_ = 0;
  RowsChanged(Changes::kRows | Changes::kSelection | Changes::kTopRow);
}

void Selector::AddItem(TextView text) {
  rows_.push_back({Text(text)});
  RowsChanged(Changes::kRowsAdded);
}

void Selector::SetListIndex(int row) {
  if (row != -1 && !Holds(row)) throw RuntimeError(ErrorNumber::kInvalidPropertyValue);
  Choose(row);
}

void Selector::Choose(int row) {
  RowsChanged(MakeCurrent(row));
  if (row >= 0) Raise(u"Click", on_click);
}

Changes Selector::MakeCurrent(int row) {
  list_index_ = row;
  return Changes::kSelection;
}

void Selector::React(const Fact& fact) {
  const auto* const chosen = std::get_if<ItemChosen>(&fact);
  if (chosen == nullptr) return;
  // The native control puts its choice back.
  if (!Holds(chosen->index)) return Changed(Changes::kSelection);
  Choose(chosen->index);
}

void ComboBox::SetText(TextView text) {
  const auto found = std::ranges::find(rows_, text, &Row::text);
  if (found != rows_.end()) return SetListIndex(static_cast<int>(found - rows_.begin()));
  throw RuntimeError(ErrorNumber::kTextNotInList,
                     Concat({u"'", text, u"' is not an item of the list"}));
}

TabStrip::TabStrip(Form& form, Text name, std::initializer_list<TextView> captions)
    : Selector(form, ControlKind::kTabStrip, std::move(name)) {
  for (const TextView tab : captions) rows_.push_back({Text(tab)});
  // From the start, without a click.
  list_index_ = 0;
}

// The peer is told twice, so that it can show the pages' change as one. When it fails, the page is
// that of the chosen tab even so.
void TabStrip::Choose(int row) {
  const Changes chosen = MakeCurrent(row);
  RunAll([&] { Changed(chosen | Changes::kTurnBegins); },
         [&] {
           if (row >= 0) Raise(u"Click", on_click);
         },
         [&] { Changed(Changes::kTurnEnds); });
}

void TabStrip::Turn(bool forward) {
  if (Count() > 0) Choose((list_index_ + (forward ? 1 : Count() - 1)) % Count());
}

}  // namespace quill::ui
