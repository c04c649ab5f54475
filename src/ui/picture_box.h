// A picture box: an area of one colour that drawing code can use as a source.
#pragma once

#include "ui/control.h"

namespace quill::ui {

// A colour as the platform writes it: 0x00BBGGRR, or 0x80000000 plus a system colour index.
using Colour = std::uint32_t;

class PictureBox final : public Control {
 public:
  PictureBox(Form& form, Text name, Colour back_colour);

  [[nodiscard]] Colour back_colour() const noexcept { return back_colour_; }
  void SetBackColour(Colour colour);
  // Its drawing is held in a memory image whose device context stays valid.
  [[nodiscard]] bool persistent_image() const noexcept { return persistent_image_; }
  void SetPersistentImage(bool on);

 private:
  Colour back_colour_;
  bool persistent_image_ = false;
};

}  // namespace quill::ui
