// A frame: a captioned group of controls.
#pragma once

#include "ui/control.h"

namespace quill::ui {

class Frame final : public Control {
 public:
  Frame(Form& form, Text name, TextView caption);
  [[nodiscard]] const Text& caption() const noexcept { return caption_; }

 private:
  Text caption_;
};

}  // namespace quill::ui
