// A single-line text box.
#pragma once

#include "ui/control.h"

namespace quill::ui {

enum class Alignment : std::uint8_t { kLeft, kRight, kCentre };

class TextBox final : public Control {
 public:
  // `max_length` in characters; 0: no limit.
  TextBox(Form& form, Text name, int max_length = 0, Alignment alignment = Alignment::kLeft,
          bool locked = false);

  [[nodiscard]] const Text& text() const noexcept { return text_; }
  // Any length: the limit holds for typing and pasting only.
  void SetText(TextView text);

  [[nodiscard]] int max_length() const noexcept { return max_length_; }
  [[nodiscard]] Alignment alignment() const noexcept { return alignment_; }
  [[nodiscard]] bool locked() const noexcept { return locked_; }

  // What the operator's edit of `before` leaves under a limit: of what has come in the place of the
  // selection, as much as fits; a text that was already longer may only become shorter.
  [[nodiscard]] static Text ApplyLimit(TextView before, const TextEdited& edit, int max_length);

 protected:
  void React(const Fact& fact) override;

 private:
  Text text_;
  int max_length_;
  Alignment alignment_;
  bool locked_;
};

}  // namespace quill::ui
