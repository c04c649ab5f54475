// A tab strip: captions of which one is chosen. It shows no pages; its owner does that on a click.
#pragma once

#include <vector>

#include "ui/control.h"

namespace quill::ui {

class TabStrip final : public Control {
 public:
  TabStrip(Form& form, Text name, std::vector<Text> captions);

  [[nodiscard]] const std::vector<Text>& captions() const noexcept { return captions_; }
  [[nodiscard]] int selected() const noexcept { return selected_; }  // 0-based
  [[nodiscard]] const Text& SelectedCaption() const {
    return captions_.at(static_cast<std::size_t>(selected_));
  }

  // Chooses the next tab or the one before, round the end, as the operator's choice.
  void Turn(bool forward);

  std::function<void()> on_click;

 protected:
  void React(const Fact& fact) override;

 private:
  void Choose(int index);

  std::vector<Text> captions_;
  int selected_ = 0;
};

}  // namespace quill::ui
