// A text box: what an edit by the operator leaves of its text.
#include "ui/text_box.h"

#include <algorithm>
#include <utility>

namespace quill::ui {
namespace {

bool IsHighSurrogate(char16_t unit) {
  return (unit & 0xFC00) == 0xD800;
}
bool IsLowSurrogate(char16_t unit) {
  return (unit & 0xFC00) == 0xDC00;
}

}  // namespace

TextBox::TextBox(Form& form, Text name, int max_length, Alignment alignment, bool locked)
    : Control(form, ControlKind::kTextBox, std::move(name)),
      max_length_(max_length),
      alignment_(alignment),
      locked_(locked) {}

void TextBox::SetText(TextView text) {
  text_ = text;
  Changed(Changes::kText);
}

Text TextBox::ApplyLimit(TextView before, const TextEdited& edit, int max_length) {
  const TextView after = edit.text;
  const auto limit = static_cast<std::size_t>(std::max(max_length, 0));
  if (limit == 0 || after.size() <= limit) return edit.text;

  const std::size_t to = std::min(edit.to, before.size());
  const std::size_t prefix = std::min(edit.from, to);
  const std::size_t suffix = before.size() - to;
  const std::size_t kept = prefix + suffix;
  if (after.size() < kept) return edit.text;  // an erasure beside the insertion point
  const TextView inserted = after.substr(prefix, after.size() - kept);
  std::size_t fitting = std::min(inserted.size(), limit > kept ? limit - kept : 0);
  const bool splits_pair =
      fitting > 0 && IsHighSurrogate(inserted[fitting - 1]) && IsLowSurrogate(inserted[fitting]);
  if (splits_pair) --fitting;
  return Concat(
      {after.substr(0, prefix), inserted.substr(0, fitting), after.substr(after.size() - suffix)});
}

void TextBox::React(const Fact& fact) {
  const auto* const edited = std::get_if<TextEdited>(&fact);
  if (edited == nullptr) return;
  if (!locked_) text_ = ApplyLimit(text_, *edited, max_length_);
  if (text_ != edited->text) Changed(Changes::kText);
}

}  // namespace quill::ui
