// A check box without a caption of its own.
#pragma once

#include "ui/control.h"

namespace quill::ui {

class CheckBox final : public Control {
 public:
  CheckBox(Form& form, Text name, TextView caption = {});

  // 0 = off, 1 = on, 2 = greyed.
  [[nodiscard]] int value() const noexcept { return value_; }
  // Fails with kInvalidPropertyValue outside 0 to 2. Runs on_click when the value changes.
  void SetValue(int value);
  [[nodiscard]] const Text& caption() const noexcept { return caption_; }

  std::function<void()> on_click;

 protected:
  // A click turns off into on, and on and greyed into off.
  void React(const Fact& fact) override;

 private:
  Text caption_;
  int value_ = 0;
};

}  // namespace quill::ui
