// A frame has nothing but its caption.
#include "ui/frame.h"

#include <utility>

namespace quill::ui {

Frame::Frame(Form& form, Text name, TextView caption)
    : Control(form, ControlKind::kFrame, std::move(name)), caption_(caption) {}

}  // namespace quill::ui
