#include "dialog/start_wait.h"

namespace quill {
namespace {

constexpr TextView kLabelName = u"lblWaiting";
// Right of the last button, as high as its face.
constexpr ui::Bounds kPlace = {7935, 285, 1320, 405};

}  // namespace

void StartWait::Begin() noexcept {
  try {
    if (label_ == nullptr) {
      label_ = &form_.Add<ui::Label>(Text(kLabelName), &container_);
      label_->SetBounds(kPlace);
    }
    const int minute = clock_.MinuteOfDay();
    const Text digits = Decimal(10000 + minute / 60 * 100 + minute % 60);
    label_->caption =
        Concat({u"Awaiting reply since ", digits.substr(1, 2), u":", digits.substr(3)});
    label_->SetVisible(true);
  } catch (...) {
    // Nothing depends on it.
  }
}

void StartWait::End() noexcept {
  if (label_ == nullptr) return;
  try {
    label_->SetVisible(false);
  } catch (...) {
    // It goes with the dialog at the latest.
  }
}

}  // namespace quill
