// A standard push button, with a caption or a picture.
#pragma once

#include "ui/control.h"

namespace quill::ui {

class CommandButton final : public Control {
 public:
  CommandButton(Form& form, Text name, TextView caption = {});

  [[nodiscard]] const Text& caption() const noexcept { return caption_; }
  [[nodiscard]] const PicturePtr& picture() const noexcept { return picture_; }
  void SetPicture(PicturePtr picture);

  std::function<void()> on_click;

 protected:
  void React(const Fact& fact) override;

 private:
  Text caption_;
  PicturePtr picture_;
};

}  // namespace quill::ui
