// What the operator sees while the answer to a start is awaited: since when, beside the buttons.
#pragma once

#include "support/clock.h"
#include "ui/controls.h"
#include "ui/form.h"

namespace quill {

class StartWait {
 public:
  // The label lies in `container`, which belongs to `form`; all outlive the wait.
  StartWait(ui::Form& form, ui::Control& container, Clock& clock) noexcept
      : form_(form), container_(container), clock_(clock) {}

  // Shows the label with the time of day. Where that cannot be done the wait goes on unseen.
  void Begin() noexcept;
  // Hides it. Does nothing when none is shown.
  void End() noexcept;

 private:
  ui::Form& form_;
  ui::Control& container_;
  Clock& clock_;
  ui::Label* label_ = nullptr;  // made for the first wait
};

}  // namespace quill
