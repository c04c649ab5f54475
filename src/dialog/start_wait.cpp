#include "dialog/start_wait.h"

namespace quill {
namespace {

constexpr TextView kLabelName = u"lblWaiting";
// Right of the last button, as high as its face.
constexpr ui::Bounds kPlace = {7935, 285, 1320, 405};

constexpr int kInterval = 500;  // milliseconds: often enough that no second is left out
constexpr std::uint64_t kSecond = 1000;
constexpr std::uint64_t kMinute = 60;

}  // namespace

void StartWait::Begin() noexcept {
  try {
    if (label_ == nullptr) {
      label_ = &form_.Add<ui::Label>(Text(kLabelName), &container_);
      label_->SetBounds(kPlace);
    }
    begun_ = clock_.Milliseconds();
    ShowTime();
    label_->SetVisible(true);
    form_.on_timer = [this] { ShowTime(); };
    form_.SetTimerInterval(kInterval);
  } catch (...) {
    // Nothing depends on it.
  }
}

void StartWait::End() noexcept {
  if (label_ == nullptr) return;
  try {
    form_.SetTimerInterval(0);
    label_->SetVisible(false);
  } catch (...) {
    // It goes with the dialog at the latest.
  }
}

void StartWait::ShowTime() {
  const std::uint64_t seconds = (clock_.Milliseconds() - begun_) / kSecond;
  Text caption(u"Awaiting reply:\r\n");
  if (seconds >= kMinute) {
    AppendDecimal(caption, static_cast<std::int64_t>(seconds / kMinute));
    caption += u" min ";
  }
  AppendDecimal(caption, static_cast<std::int64_t>(seconds % kMinute));
  caption += u" s";
  if (caption != label_->caption()) label_->SetCaption(caption);
}

}  // namespace quill
