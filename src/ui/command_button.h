// A standard push button, with a caption or an icon.
#pragma once

#include "ui/control.h"

namespace quill::ui {

class CommandButton final : public Control {
 public:
  // `icon` is the name of one of the library's icons, 32 pixels wide and high at 96 dots per inch;
  // it is not copied.
  CommandButton(Form& form, Text name, TextView caption = {}, TextView icon = {});

  [[nodiscard]] const Text& caption() const noexcept { return caption_; }
  [[nodiscard]] TextView icon() const noexcept { return icon_; }

  std::function<void()> on_click;

 protected:
  void React(const Fact& fact) override;
  bool ReactToKey(const KeyStruck& key) override;  // Enter clicks it

 private:
  Text caption_;
  TextView icon_;
};

}  // namespace quill::ui
