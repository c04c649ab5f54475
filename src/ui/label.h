// A label: text that the operator reads; with mouse handlers it can serve as a button's caption.
#pragma once

#include "ui/control.h"
#include "ui/text_box.h"

namespace quill::ui {

class Label final : public Control {
 public:
  Label(Form& form, Text name, TextView caption = {}, Alignment alignment = Alignment::kLeft);

  [[nodiscard]] const Text& caption() const noexcept { return caption_; }
  void SetCaption(TextView caption);
  [[nodiscard]] Alignment alignment() const noexcept { return alignment_; }
  void SetAlignment(Alignment alignment);
  // In points.
  [[nodiscard]] int font_size() const noexcept { return font_size_; }
  void SetFontSize(int points);
  // True: what lies behind shows between the letters.
  [[nodiscard]] bool transparent() const noexcept { return transparent_; }
  void SetTransparent(bool transparent);

  std::function<void(const MouseEvent&)> on_mouse_down;
  std::function<void(const MouseEvent&)> on_mouse_up;
  std::function<void()> on_mouse_lost;  // in place of the mouse-up

 protected:
  void React(const Fact& fact) override;

 private:
  Text caption_;
  Alignment alignment_;
  int font_size_ = 8;
  bool transparent_ = false;
};

}  // namespace quill::ui
