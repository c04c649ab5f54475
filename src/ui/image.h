// An image: shows a picture, stretched to its own size when asked to. As a tab stop it is a button:
// Enter and its access key count as a press and a release of the left mouse button on its middle,
// the space bar as that button, held as long as it is. Without a picture it is not there for the
// operator.
#pragma once

#include "ui/control.h"

namespace quill::ui {

class Image final : public Control {
 public:
  Image(Form& form, Text name);

  [[nodiscard]] bool visible() const noexcept override {
    return Control::visible() && picture_ != nullptr;
  }
  // Null: empty.
  [[nodiscard]] const PicturePtr& picture() const noexcept { return picture_; }
  void SetPicture(PicturePtr picture);
  [[nodiscard]] bool stretch() const noexcept { return stretch_; }
  void SetStretch(bool stretch);
  // True: a key that is held presses it again and again. Otherwise once, as at first.
  void SetRepeats(bool repeats) noexcept { repeats_ = repeats; }

  std::function<void(const MouseEvent&)> on_mouse_down;
  std::function<void(const MouseEvent&)> on_mouse_up;
  std::function<void()> on_mouse_lost;  // in place of the mouse-up

 protected:
  void React(const Fact& fact) override;
  bool ReactToKey(const KeyStruck& key) override;

 private:
  [[nodiscard]] MouseEvent Middle() const noexcept;
  void LoseSpace();

  PicturePtr picture_;
  bool stretch_ = false;
  bool repeats_ = false;
  bool space_held_ = false;
};

}  // namespace quill::ui
